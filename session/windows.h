// Windows that the logic itself opens, beside the modal questions of Dialogs.
#pragma once

namespace astel {

class Windows {
 public:
  virtual ~Windows() = default;
  // The telescope selection dialog, opened when a home file lacks its telescope settings.
  virtual void OpenScopeSelection() = 0;
};

}  // namespace astel
