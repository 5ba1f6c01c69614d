// DataEntry: an object that is not in the catalog (by coordinates, by altitude and azimuth seen
// now, or from the telescope), or, in its location mode, the observer's latitude and longitude.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <functional>

#include "session/place_entry.h"
#include "ui/gui_context.h"

namespace astel::ui {

class DataEntryDialog : public QDialog {
  Q_OBJECT
 public:
  enum class Mode { kObject, kLocation };
  DataEntryDialog(GuiContext& context, Mode mode, QWidget* parent);

  Mode mode() const { return mode_; }
  // The object mode's OK: the three options, the two names. True when the window may close.
  // Set by whoever owns the object-entry logic.
  std::function<bool(int option, const std::string& name1, const std::string& name2)> objectOk;

  PlaceForm placeForm() const;
  void setPlaceForm(const PlaceForm& form);
  // Where the cursor starts in the location mode.
  void focusLongitude();

  QRadioButton* option(int i) const { return options_[i - 1]; }
  QLineEdit* text1() const { return text1_; }
  QLineEdit* text2() const { return text2_; }
  QPushButton* okButton() const { return ok_; }
  QLineEdit* latitudeDegrees() const { return latDegrees_; }
  QLineEdit* latitudeMinutes() const { return latMinutes_; }
  QRadioButton* north() const { return north_; }
  QRadioButton* south() const { return south_; }
  QLineEdit* longitudeDegrees() const { return lonDegrees_; }
  QLineEdit* longitudeMinutes() const { return lonMinutes_; }
  QRadioButton* east() const { return east_; }
  QRadioButton* west() const { return west_; }

 private:
  QWidget* BuildObjectPage();
  QWidget* BuildLocationPage();
  void Ok();

  GuiContext& context_;
  Mode mode_;
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
