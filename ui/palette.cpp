#include "ui/palette.h"

#include <QApplication>

#include "session/night_vision_toggle.h"

namespace astel::ui {

namespace {

struct RoleColour {
  QPalette::ColorRole role;
  int systemColour;
};

// Which old system colour paints which part of a Qt window.
constexpr RoleColour kRoles[] = {
    {QPalette::Window, kColourWindow},
    {QPalette::Base, kColourWindow},
    {QPalette::AlternateBase, kColourWindow},
    {QPalette::WindowText, kColourWindowText},
    {QPalette::Text, kColourWindowText},
    {QPalette::Button, kColourButtonFace},
    {QPalette::ButtonText, kColourButtonText},
    {QPalette::Highlight, kColourHighlight},
    {QPalette::HighlightedText, kColourHighlightText},
    {QPalette::BrightText, kColourHighlightText},
    {QPalette::Link, kColourHighlightText},
    {QPalette::LinkVisited, kColourHighlight},
    {QPalette::ToolTipText, kColourToolTipText},
    {QPalette::ToolTipBase, kColourToolTipBack},
    {QPalette::Light, kColourButtonHighlight},
    {QPalette::Midlight, kColourLight},
    {QPalette::Mid, kColourActiveBorder},
    {QPalette::Dark, kColourButtonShadow},
    {QPalette::Shadow, kColourDarkShadow},
    {QPalette::PlaceholderText, kColourGrayText},
};

// The reverse: the role that stands for each old system colour number 1..24.
constexpr QPalette::ColorRole kSystemColourRoles[25] = {
    QPalette::Button,           // 0 scroll bar
    QPalette::Window,           // 1 desktop
    QPalette::Highlight,        // 2 active caption
    QPalette::Mid,              // 3 inactive caption
    QPalette::Window,           // 4 menu
    QPalette::Base,             // 5 window
    QPalette::Shadow,           // 6 window frame
    QPalette::WindowText,       // 7 menu text
    QPalette::Text,             // 8 window text
    QPalette::HighlightedText,  // 9 caption text
    QPalette::Mid,              // 10 active border
    QPalette::Mid,              // 11 inactive border
    QPalette::Dark,             // 12 application workspace
    QPalette::Highlight,        // 13 highlight
    QPalette::HighlightedText,  // 14 highlight text
    QPalette::Button,           // 15 button face
    QPalette::Dark,             // 16 button shadow
    QPalette::PlaceholderText,  // 17 gray text
    QPalette::ButtonText,       // 18 button text
    QPalette::WindowText,       // 19 inactive caption text
    QPalette::Light,            // 20 button highlight
    QPalette::Shadow,           // 21 3D dark shadow
    QPalette::Midlight,         // 22 3D light
    QPalette::ToolTipText,      // 23 tool tip text
    QPalette::ToolTipBase,      // 24 tool tip background
};

constexpr unsigned kByte = 0xFF;

}  // namespace

QColor ToQColor(Colour c) {
  return QColor(static_cast<int>(c & kByte), static_cast<int>((c >> 8) & kByte),
                static_cast<int>((c >> 16) & kByte));
}

Colour FromQColor(const QColor& c) {
  return static_cast<Colour>(c.red()) | static_cast<Colour>(c.green()) << 8 |
         static_cast<Colour>(c.blue()) << 16;
}

QPalette NightPalette(const QPalette& day, const std::array<Colour, 25>& night) {
  QPalette p = day;
  for (const RoleColour& r : kRoles) {
    p.setColor(QPalette::All, r.role, ToQColor(night[r.systemColour]));
  }
  const QColor gray = ToQColor(night[kColourGrayText]);
  for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    p.setColor(QPalette::Disabled, role, gray);
  }
  return p;
}

void ReadSystemColours(const QPalette& palette, std::array<Colour, 26>& colours) {
  for (int i = 1; i < 25; ++i) {
    colours[i] = FromQColor(palette.color(QPalette::Active, kSystemColourRoles[i]));
  }
}

PaletteKeeper::PaletteKeeper(DisplayState& display) : day_(QApplication::palette()) {
  ReadSystemColours(day_, display.savedSysColors);
}

void PaletteKeeper::Apply(const DisplayState& display) const {
  if (display.nightVision) {
    QApplication::setPalette(NightPalette(day_, display.nightColors));
  } else {
    Restore();
  }
}

void PaletteKeeper::Restore() const {
  QApplication::setPalette(day_);
}

}  // namespace astel::ui
