// Searching: the progress window of a catalog scan. Its Cancel button only asks the scan to stop
// (state.search.cancelRequested); the scan notices it at its next DoEvents, every 100 records.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <string>

#include "core/shared_state.h"

namespace astel::ui {

class SearchingWindow : public QDialog {
  Q_OBJECT
 public:
  SearchingWindow(SearchState& search, QWidget* parent);

  void ShowCaption(const std::string& caption);
  void SetProgress(const std::string& text);
  void HideWindow();

  QLabel* progressLabel() const { return label_; }
  QPushButton* cancelButton() const { return cancel_; }

 protected:
  void reject() override;  // Escape and the close box cancel too

 private:
  SearchState& search_;
  QLabel* label_;
  QPushButton* cancel_;
};

}  // namespace astel::ui
