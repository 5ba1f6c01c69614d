// A fresh folder for one test, removed with everything in it afterwards.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace astel::testing {

class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "astel-test-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace astel::testing
