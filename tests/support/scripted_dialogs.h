// A Dialogs that answers input boxes and questions from a script, in order, and records every
// prompt, title and message it was shown. An input box or question with nothing queued is a test
// failure (and answers Cancel), so an unexpected prompt never passes unnoticed.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "core/ports.h"

namespace astel::testing {

class ScriptedDialogs : public Dialogs {
 public:
  std::deque<std::string> answers;  // input boxes, in order
  std::deque<bool> choices;         // yes/no and OK/Cancel questions, in order
  // Input-box prompts with their titles and defaults, messages, and questions, in order.
  std::vector<std::string> prompts, titles, defaults, messages, questions;

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultAnswer) override {
    prompts.push_back(prompt);
    titles.push_back(title);
    defaults.push_back(defaultAnswer);
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected input box: " << prompt;
      return "";
    }
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void MessageBox(const std::string& text, const std::string& = "") override {
    messages.push_back(text);
  }
  bool YesNo(const std::string& text, const std::string& = "") override { return Choose(text); }
  bool OkCancel(const std::string& text, const std::string& = "") override { return Choose(text); }

 private:
  bool Choose(const std::string& text) {
    questions.push_back(text);
    if (choices.empty()) {
      ADD_FAILURE() << "unexpected question: " << text;
      return false;
    }
    bool choice = choices.front();
    choices.pop_front();
    return choice;
  }
};

}  // namespace astel::testing
