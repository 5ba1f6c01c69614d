#include "scope/scope_form.h"

#include "scope/meade_upload.h"
#include "scope/scope_models.h"

namespace astel {

void ScopeFormLogic::List1Click(std::string_view row) {
  // The clicked row decides, not the telescope chosen so far: the reminder is for the new choice.
  auto chosen = FindScopeRow(row);
  if (chosen && FamilyOfRow(*chosen) != 0 && context_.state.telescope.comPort == 0) {
    context_.dialogs.MessageBox("Now you must select a COM port");
  }
}

void ScopeFormLogic::List2Click(std::string_view row) {
  for (std::size_t i = 0; i < kComPortRows.size(); ++i) {
    if (row == kComPortRows[i]) {
      context_.state.telescope.comPort = static_cast<int>(i) + 1;
      context_.state.program.configChanged = true;
      return;
    }
  }
  context_.dialogs.MessageBox("No Com Port Selected!");
}

bool ScopeFormLogic::OkClick(std::string_view selectedRow) {
  TelescopeState& telescope = context_.state.telescope;
  if (selectedRow.empty()) {
    context_.dialogs.MessageBox("No Scope Selected!");
    return false;
  }
  auto row = FindScopeRow(selectedRow);
  if (!row) {
    context_.dialogs.MessageBox("Make a Selection");
    return false;
  }
  const int family = FamilyOfRow(*row);
  if (family != 0 && telescope.comPort == 0) {
    context_.dialogs.MessageBox("No Com Port Selected!");
    return false;
  }
  ScopeChoice choice = ChooseScopeModel(row->code, context_.dialogs);
  telescope.scopeCode = choice.code;
  telescope.scopeHasGps = choice.flags.hasGps;
  telescope.scopeNoDstShift = choice.flags.noDstShift;
  telescope.scopeLoadEnabled = choice.flags.loadEnabled;
  telescope.scopeType = static_cast<std::int16_t>(family);
  if (choice.code == kNoGotoScopeCode) telescope.comPort = 0;
  context_.state.program.configChanged = true;
  return true;
}

void ScopeFormLogic::UploadClick() {
  if (!context_.state.time.realTimeMode) {
    context_.dialogs.MessageBox("Must be in Real-Time Mode for Upload Operation");
    return;
  }
  const int code = context_.state.telescope.scopeCode;
  if (code < 401 || code > 407) {
    context_.dialogs.MessageBox("Function not Available");
    return;
  }
  monitor_.busy = true;
  monitor_.cancelRequested = false;
  bool uploaded = UploadMeade(context_, monitor_, true);
  monitor_.busy = false;
  if (uploaded) context_.dialogs.MessageBox("Successful Upload to Telescope");
}

void ScopeFormLogic::Close() {
  monitor_.cancelRequested = true;
  if (!monitor_.busy) context_.comm.CommClose(context_.state.telescope.comPort);
  context_.state.form.commandButtonsEnabled = true;
}

}  // namespace astel
