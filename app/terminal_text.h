// Texts for the terminal: the program's Latin-1 bytes as UTF-8.
#pragma once

#include <string>

namespace astel {

inline std::string ToUtf8(const std::string& latin1) {
  std::string out;
  for (unsigned char c : latin1) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

}  // namespace astel
