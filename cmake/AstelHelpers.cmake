# One place that declares how a logic library and a test program are built.

# astel_logic_library(NAME SOURCES... DEPS ...): a static library of the logic layer.
function(astel_logic_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_DEPS})
endfunction()

# astel_add_test(NAME SOURCES... DEPS ... [LABELS ...]): one GoogleTest program registered with CTest.
function(astel_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPS;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE ASTEL_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
                                             ASTEL_SOURCE_DATA_DIR="${PROJECT_SOURCE_DIR}/data")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS "${ARG_LABELS}")
endfunction()
