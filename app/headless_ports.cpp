#include "app/headless_ports.h"

#include <chrono>
#include <ostream>
#include <thread>

namespace astel {

namespace {

// Messages keep their Latin-1 bytes in memory; the terminal gets UTF-8.
std::string ToUtf8(const std::string& latin1) {
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

// "\n\r" and "\r\n" inside a message are one line break on a terminal.
std::string OneLine(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c != '\r') out += c;
  }
  return out;
}

}  // namespace

std::string HeadlessDialogs::InputBox(const std::string& prompt, const std::string&,
                                      const std::string&) {
  out_ << "astel: " << ToUtf8(OneLine(prompt)) << " (no answer without a window: Cancel)\n";
  return "";
}

void HeadlessDialogs::MessageBox(const std::string& text, const std::string&) {
  out_ << "astel: " << ToUtf8(OneLine(text)) << "\n";
}

bool HeadlessDialogs::YesNo(const std::string& text, const std::string&) {
  out_ << "astel: " << ToUtf8(OneLine(text)) << " (no answer without a window: No)\n";
  return false;
}

bool HeadlessDialogs::OkCancel(const std::string& text, const std::string&) {
  out_ << "astel: " << ToUtf8(OneLine(text)) << " (no answer without a window: Cancel)\n";
  return false;
}

void HeadlessEvents::Sleep(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace astel
