// The one place where the program's Latin-1 texts meet Qt's Unicode strings.
#pragma once

#include <QString>
#include <string>

namespace astel::ui {

inline QString FromLatin1(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Characters outside Latin-1 become "?", as the old input boxes did with them.
inline std::string ToLatin1(const QString& text) {
  const QByteArray bytes = text.toLatin1();
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

// Message and prompt texts carry line breaks as line feed and carriage return pairs; Qt shows
// the carriage return as a blank, so only the line feeds are kept.
inline QString DialogText(const std::string& text) {
  QString q = FromLatin1(text);
  q.remove(QLatin1Char('\r'));
  return q;
}

}  // namespace astel::ui
