#include "ui/qt_ports.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QInputDialog>
#include <QMessageBox>
#include <QTimer>

#include "ui/latin1.h"

namespace astel::ui {

namespace {

QString Title(const std::string& title) {
  return title.empty() ? QString::fromLatin1(kProgramTitle) : FromLatin1(title);
}

}  // namespace

std::string QtDialogs::InputBox(const std::string& prompt, const std::string& title,
                                const std::string& defaultAnswer) {
  QInputDialog box(QApplication::activeWindow());
  box.setWindowTitle(Title(title));
  box.setLabelText(DialogText(prompt));
  box.setTextValue(FromLatin1(defaultAnswer));
  box.setInputMode(QInputDialog::TextInput);
  if (box.exec() != QDialog::Accepted) return "";
  return ToLatin1(box.textValue());
}

void QtDialogs::MessageBox(const std::string& text, const std::string& title) {
  QMessageBox::information(QApplication::activeWindow(), Title(title), DialogText(text));
}

bool QtDialogs::YesNo(const std::string& text, const std::string& title) {
  return QMessageBox::question(QApplication::activeWindow(), Title(title), DialogText(text),
                               QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool QtDialogs::OkCancel(const std::string& text, const std::string& title) {
  return QMessageBox::question(QApplication::activeWindow(), Title(title), DialogText(text),
                               QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

void QtEvents::DoEvents() {
  QCoreApplication::processEvents();
}

void QtEvents::Sleep(int milliseconds) {
  if (milliseconds <= 0) {
    DoEvents();
    return;
  }
  QEventLoop loop;
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

void QtClipboard::SetText(const std::string& text) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->clear();
  clipboard->setText(FromLatin1(text));
}

}  // namespace astel::ui
