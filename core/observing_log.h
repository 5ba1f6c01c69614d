// The observing and command log ASTELLOG.TXT: observers' notes and a script's outcomes, each
// entry appended in one write with a header once per run and a line about the shown object.
#pragma once

#include <string>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

// The whole text of one entry (header when lastLoggedName is empty, object line, the text), with
// CR LF line ends; updates lastLoggedName.
std::string ComposeLogEntry(SharedState& state, const std::string& text);

// Appends one entry to installDir + logFileName (created when missing). When the file cannot be
// written, the reason is shown and false returned; lastLoggedName is then left as it was.
bool WriteLogEntry(SharedState& state, Dialogs& dialogs, const std::string& text);

// The "Observing Log" button: asks for notes until a blank answer; each note is one entry.
void TakeObservingNotes(SharedState& state, Dialogs& dialogs);

}  // namespace astel
