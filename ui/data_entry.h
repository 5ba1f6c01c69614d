// DataEntry: an object that is not in the catalog (by coordinates, by altitude and azimuth seen
// now, or from the telescope), or, in its location mode, the observer's latitude and longitude.
// OK goes to DataEntryOk or ApplyLocationEntry; a telescope reading shows its progress in Label3
// and stops when the window is closed.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "catalog/object_entry.h"
#include "session/telescope_read_back.h"
#include "ui/gui_context.h"

namespace astel::ui {

class DataEntryDialog : public QDialog {
  Q_OBJECT
 public:
  enum class Mode { kObject, kLocation };
  DataEntryDialog(GuiContext& context, Mode mode, QWidget* parent);

  Mode mode() const { return mode_; }

  DataEntryForm objectForm() const;
  LocationEntry locationEntry() const;
  void setLocationEntry(const LocationEntry& entry);
  // Where the cursor starts in the location mode.
  void focusLongitude();

  QRadioButton* option(int i) const { return options_[i - 1]; }
  QLineEdit* text1() const { return text1_; }
  QLineEdit* text2() const { return text2_; }
  QPushButton* okButton() const { return ok_; }
  QLabel* statusLabel() const { return label3_; }
  ExchangeMonitor& monitor() { return monitor_; }
  QLineEdit* latitudeDegrees() const { return latDegrees_; }
  QLineEdit* latitudeMinutes() const { return latMinutes_; }
  QRadioButton* north() const { return north_; }
  QRadioButton* south() const { return south_; }
  QLineEdit* longitudeDegrees() const { return lonDegrees_; }
  QLineEdit* longitudeMinutes() const { return lonMinutes_; }
  QRadioButton* east() const { return east_; }
  QRadioButton* west() const { return west_; }

 protected:
  void done(int result) override;

 private:
  QWidget* BuildObjectPage();
  QWidget* BuildLocationPage();
  void Ok();

  GuiContext& context_;
  Mode mode_;
  ScopeContext scope_;
  ExchangeMonitor monitor_;
  LiveExchange live_{context_, monitor_};
  TelescopeReadBack readBack_{scope_, monitor_};
  QLabel* label3_ = nullptr;
  QRadioButton* options_[3] = {};
  QLineEdit* text1_ = nullptr;
  QLineEdit* text2_ = nullptr;
  QLineEdit* latDegrees_ = nullptr;
  QLineEdit* latMinutes_ = nullptr;
  QRadioButton* north_ = nullptr;
  QRadioButton* south_ = nullptr;
  QLineEdit* lonDegrees_ = nullptr;
  QLineEdit* lonMinutes_ = nullptr;
  QRadioButton* east_ = nullptr;
  QRadioButton* west_ = nullptr;
  QPushButton* ok_;
};

}  // namespace astel::ui
