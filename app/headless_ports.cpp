#include "app/headless_ports.h"

#include <chrono>
#include <ostream>
#include <thread>

#include "app/terminal_text.h"

namespace astel {

namespace {

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
