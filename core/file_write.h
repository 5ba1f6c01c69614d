// Writing the files an observer keeps, so that a crash or a full disk never leaves half a file.
#pragma once

#include <string>
#include <string_view>

namespace astel {

// Writes every byte to fd, going on after interrupted and partial writes.
bool WriteAll(int fd, std::string_view bytes);

// Replaces the file at path by bytes: a temporary file in the same folder is written, flushed to
// disk and renamed over the old one. Returns "" or the reason it failed (the old file then stays).
std::string ReplaceFile(const std::string& path, std::string_view bytes);

// Appends bytes (whole lines) in one write, creating the file when it is missing. Returns "" or
// the reason it failed.
std::string AppendToFile(const std::string& path, std::string_view bytes);

}  // namespace astel
