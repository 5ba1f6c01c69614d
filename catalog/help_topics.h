// The help window's topics: a fixed table of titles and their short texts, in list order, and
// the pages it can open.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/shared_state.h"

namespace astel {

struct HelpTopic {
  const char* title;
  const char* text;
};

// The 53 topics in the order of the list.
std::span<const HelpTopic> HelpTopics();

// The text for a title exactly as listed; "" for an unknown title.
std::string HelpText(const std::string& title);

// The documentation that Label1 opens: the installed help page, installDir + "ASTEL.HTM".
std::string DocumentationAddress(const SharedState& state);

// File1: the help pages of the program folder, names fitting "*.HTM*" in any case, sorted.
std::vector<std::string> HelpPages(const std::string& installDir);

}  // namespace astel
