// Searching: the progress window of a catalog scan. Its Cancel button only asks the scan to stop
// (state.search.cancelRequested); the scan notices it at its next DoEvents, every 100 records.
// While it is shown it is modal, so that nothing but Cancel can be clicked during a scan.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <string>

#include "catalog/search_ports.h"
#include "core/shared_state.h"

namespace astel::ui {

class SearchingWindow : public QDialog, public SearchWindow {
  Q_OBJECT
 public:
  SearchingWindow(SearchState& search, QWidget* parent);

  // SearchWindow.
  void Show(const std::string& caption) override;
  void SetProgress(const std::string& text) override;
  void Hide() override;

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
