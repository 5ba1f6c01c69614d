#include "ui/data_entry.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "session/place_entry.h"
#include "ui/latin1.h"

namespace astel::ui {

namespace {

QLineEdit* NumberField(const char* name, QWidget* parent) {
  auto* field = new QLineEdit(parent);
  field->setObjectName(name);
  field->setMaxLength(10);
  field->setMaximumWidth(field->fontMetrics().horizontalAdvance("0000000000") + 16);
  return field;
}

}  // namespace

DataEntryDialog::DataEntryDialog(GuiContext& context, Mode mode, QWidget* parent)
    : QDialog(parent), context_(context), mode_(mode), scope_(context.Scope()) {
  setObjectName("DataEntry");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(mode == Mode::kObject ? BuildObjectPage() : BuildLocationPage());
  ok_ = new QPushButton("OK", this);
  ok_->setObjectName("OK");
  ok_->setDefault(true);
  layout->addWidget(ok_, 0, Qt::AlignRight);
  connect(ok_, &QPushButton::clicked, this, &DataEntryDialog::Ok);
}

QWidget* DataEntryDialog::BuildObjectPage() {
  setWindowTitle("Object not in the Catalog");
  auto* page = new QWidget(this);
  auto* how = new QGroupBox("How do you want to give the object's position?", page);
  auto* howLayout = new QVBoxLayout(how);
  const char* captions[3] = {"Right Ascension and Declination (you will be asked for them)",
                             "Altitude and Azimuth where you see it now",
                             "Load the position the telescope points at"};
  const char* tips[3] = {"Enter the object's coordinates and their epoch",
                         "Enter where the object stands in your sky now",
                         "Read where the GoTo telescope is pointing (real time only)"};
  for (int i = 0; i < 3; ++i) {
    options_[i] = new QRadioButton(captions[i], how);
    options_[i]->setObjectName(QString("Option%1").arg(i + 1));
    options_[i]->setToolTip(tips[i]);
    howLayout->addWidget(options_[i]);
  }
  text1_ = new QLineEdit(page);
  text1_->setObjectName("Text1");
  text1_->setMaxLength(12);
  text1_->setToolTip("First name of the object, up to 12 characters");
  text2_ = new QLineEdit(page);
  text2_->setObjectName("Text2");
  text2_->setMaxLength(12);
  text2_->setToolTip("Second name of the object, up to 12 characters");
  auto* names = new QFormLayout;
  names->addRow("First name:", text1_);
  names->addRow("Second name:", text2_);
  label3_ = new QLabel(" ", page);
  label3_->setObjectName("Label3");
  label3_->setWordWrap(true);
  label3_->setFrameShape(QFrame::StyledPanel);
  label3_->setMinimumHeight(label3_->fontMetrics().height() * 3);
  label3_->setToolTip("What the telescope has answered so far");
  monitor_.onStatus = [this](const std::string& text) { label3_->setText(FromLatin1(text)); };
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(how);
  layout->addLayout(names);
  layout->addWidget(label3_);
  return page;
}

QWidget* DataEntryDialog::BuildLocationPage() {
  setWindowTitle("Set Your Location");
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);

  auto* latitude = new QGroupBox("Latitude", page);
  auto* latLayout = new QGridLayout(latitude);
  latDegrees_ = NumberField("LatitudeDegrees", latitude);
  latDegrees_->setToolTip("Whole degrees, 0 to 89");
  latMinutes_ = NumberField("LatitudeMinutes", latitude);
  latMinutes_->setToolTip("Minutes, 0 to 59.999, decimals OK");
  north_ = new QRadioButton("North", latitude);
  north_->setObjectName("North");
  south_ = new QRadioButton("South", latitude);
  south_->setObjectName("South");
  auto* ns = new QButtonGroup(latitude);
  ns->addButton(north_);
  ns->addButton(south_);
  latLayout->addWidget(new QLabel("Degrees", latitude), 0, 0);
  latLayout->addWidget(latDegrees_, 0, 1);
  latLayout->addWidget(new QLabel("Minutes", latitude), 1, 0);
  latLayout->addWidget(latMinutes_, 1, 1);
  latLayout->addWidget(north_, 0, 2);
  latLayout->addWidget(south_, 1, 2);

  auto* longitude = new QGroupBox("Longitude", page);
  auto* lonLayout = new QGridLayout(longitude);
  lonDegrees_ = NumberField("LongitudeDegrees", longitude);
  lonDegrees_->setToolTip("Whole degrees, 0 to 179");
  lonMinutes_ = NumberField("LongitudeMinutes", longitude);
  lonMinutes_->setToolTip("Minutes, 0 to 59.999, decimals OK");
  east_ = new QRadioButton("East", longitude);
  east_->setObjectName("East");
  west_ = new QRadioButton("West", longitude);
  west_->setObjectName("West");
  auto* ew = new QButtonGroup(longitude);
  ew->addButton(east_);
  ew->addButton(west_);
  lonLayout->addWidget(new QLabel("Degrees", longitude), 0, 0);
  lonLayout->addWidget(lonDegrees_, 0, 1);
  lonLayout->addWidget(new QLabel("Minutes", longitude), 1, 0);
  lonLayout->addWidget(lonMinutes_, 1, 1);
  lonLayout->addWidget(east_, 0, 2);
  lonLayout->addWidget(west_, 1, 2);

  grid->addWidget(latitude, 0, 0);
  grid->addWidget(longitude, 0, 1);
  setLocationEntry(LocationEntryFromState(context_.state.place));
  return page;
}

DataEntryForm DataEntryDialog::objectForm() const {
  DataEntryForm f;
  if (mode_ != Mode::kObject) return f;
  constexpr EntryOption kOptions[3] = {EntryOption::kCoordinates, EntryOption::kAltAz,
                                       EntryOption::kTelescope};
  for (int i = 0; i < 3; ++i) {
    if (options_[i]->isChecked()) f.option = kOptions[i];
  }
  f.name1 = ToLatin1(text1_->text());
  f.name2 = ToLatin1(text2_->text());
  return f;
}

LocationEntry DataEntryDialog::locationEntry() const {
  LocationEntry f;
  if (mode_ != Mode::kLocation) return f;
  f.latitudeDegrees = ToLatin1(latDegrees_->text());
  f.latitudeMinutes = ToLatin1(latMinutes_->text());
  f.north = north_->isChecked();
  f.south = south_->isChecked();
  f.longitudeDegrees = ToLatin1(lonDegrees_->text());
  f.longitudeMinutes = ToLatin1(lonMinutes_->text());
  f.east = east_->isChecked();
  f.west = west_->isChecked();
  return f;
}

void DataEntryDialog::setLocationEntry(const LocationEntry& f) {
  if (mode_ != Mode::kLocation) return;
  latDegrees_->setText(FromLatin1(f.latitudeDegrees));
  latMinutes_->setText(FromLatin1(f.latitudeMinutes));
  north_->setChecked(f.north);
  south_->setChecked(f.south);
  lonDegrees_->setText(FromLatin1(f.longitudeDegrees));
  lonMinutes_->setText(FromLatin1(f.longitudeMinutes));
  east_->setChecked(f.east);
  west_->setChecked(f.west);
}

void DataEntryDialog::focusLongitude() {
  if (lonDegrees_) lonDegrees_->setFocus();
}

void DataEntryDialog::Ok() {
  if (mode_ == Mode::kLocation) {
    if (ApplyLocationEntry(context_.state, context_.dialogs, locationEntry())) accept();
    return;
  }
  if (monitor_.busy) return;
  ok_->setEnabled(false);
  const bool shown = DataEntryOk(context_.state, context_.dialogs, readBack_, objectForm());
  ok_->setEnabled(true);
  if (shown) accept();
}

void DataEntryDialog::done(int result) {
  // A telescope that never answers is left by closing the window.
  monitor_.cancelRequested = true;
  QDialog::done(result);
}

}  // namespace astel::ui
