#include "ui/gui_app.h"

#include <QApplication>
#include <QScreen>
#include <QStyleFactory>
#include <iostream>

#include "core/system_ports.h"
#include "ui/form1.h"
#include "ui/qt_ports.h"
#include "ui/scope_form.h"
#include "ui/screenshot_tour.h"

namespace astel::ui {

namespace {
// Small netbooks at the telescope have 1024 x 600 screens; the window opens no larger.
const QSize kLargestStartSize(1024, 600);
}  // namespace

int RunGui(int& argc, char** argv, const StartupInputs& inputs) {
  QApplication app(argc, argv);
  // Fusion draws every control from the palette, which night vision relies on.
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setApplicationName(kProgramTitle);
  QGuiApplication::setDesktopFileName("astel");

  SharedState state;
  QtDialogs dialogs;
  SystemClock clock;
  QtEvents events;
  SystemShell shell;
  QtClipboard clipboard;
  QtWindows windows;
  // The one set of serial ports; failures are explained on standard error, where a user starting
  // the program from a terminal looks for them.
  CommPorts comm(events, std::cerr);
  GuiContext context{state,
                     dialogs,
                     clock,
                     events,
                     shell,
                     clipboard,
                     windows,
                     comm,
                     inputs.executablePath,
                     inputs.desktopDir,
                     {}};
  windows.openScopeSelection = [&context] {
    ScopeFormDialog dialog(context, nullptr);
    dialog.exec();
  };
  if (int failed = Startup(state, inputs, dialogs, clock, windows)) return failed;

  Form1 form(context);
  form.resize(form.sizeHint().expandedTo(QSize(960, 560)).boundedTo(kLargestStartSize));
  const QString shots = qEnvironmentVariable("ASTEL_SCREENSHOT_DIR");
  if (!shots.isEmpty()) {
    form.onFirstPaint = [&form, &context, shots] {
      RunScreenshotTour(form, context, shots);
      QCoreApplication::quit();
    };
  } else if (qEnvironmentVariableIntValue("ASTEL_EXIT_AFTER_PAINT") == 1) {
    form.onFirstPaint = [] { QCoreApplication::quit(); };
  }
  form.show();
  const int code = app.exec();
  // A script that ended the program gives its own code, whatever else asked to quit meanwhile.
  return form.programExitCode().value_or(code);
}

}  // namespace astel::ui
