// A developer's look at every window: each one opened in turn and saved as a PNG.
#pragma once

#include <QString>

#include "ui/form1.h"

namespace astel::ui {

// Saves form1_day.png, each dialog, form1_night.png and a dialog at night into `dir`, then puts
// the day colours back.
void RunScreenshotTour(Form1& form, GuiContext& context, const QString& dir);

}  // namespace astel::ui
