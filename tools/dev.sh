#!/usr/bin/env bash
# Builds and runs ASTEL+S on a Debian 12 machine, installing what it needs first.
#   tools/dev.sh run [script]   build and start the program
#   tools/dev.sh test           build and run every test
#   tools/dev.sh bench          build and run the benchmarks
#   tools/dev.sh sanitize       build with ASan/UBSan (clang) and run every test
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(g++ cmake ninja-build pkg-config libfmt-dev libnova-dev libgtest-dev libgmock-dev
  libbenchmark-dev qt6-base-dev libgl-dev xvfb xauth faketime socat clang libclang-rt-14-dev
  locales)

install_missing() {
  local missing=()
  for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  if ((${#missing[@]})); then
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
  fi
}

configure() {  # configure DIR [cmake options...]
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
}

# A decimal-comma locale, so the tests can prove that numbers sent to a telescope keep their point.
comma_locale() {
  locale -a 2>/dev/null | grep -qi '^de_DE\.utf8$' && return
  local sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo localedef -i de_DE -f UTF-8 de_DE.UTF-8 2>/dev/null || true
}

cmd=${1:-run}
shift || true
install_missing
case "$cmd" in
  run)
    configure build
    cmake --build build --target astel
    exec ./build/astel "$@"
    ;;
  test)
    comma_locale
    configure build
    cmake --build build
    ctest --test-dir build --output-on-failure -j2
    ;;
  bench)
    configure build -DCMAKE_BUILD_TYPE=Release
    cmake --build build
    for b in build/bench/bench_*; do [ -x "$b" ] && "$b"; done
    ;;
  sanitize)
    configure build-asan -DCMAKE_CXX_COMPILER=clang++ -DASTEL_SANITIZE=ON -DASTEL_BUILD_BENCH=OFF \
      -DCMAKE_BUILD_TYPE=Debug
    cmake --build build-asan
    ctest --test-dir build-asan --output-on-failure -j2
    ;;
  *)
    echo "usage: tools/dev.sh run|test|bench|sanitize" >&2
    exit 2
    ;;
esac
