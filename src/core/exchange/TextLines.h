#pragma once

#include <QString>
#include <QStringList>

/// The lines of a text, which end at CR LF, LF or CR; without the end that the last one may have.
inline QStringList linesOf(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  if (text.endsWith(u'\n')) {
    text.chop(1);
  }
  return text.isEmpty() ? QStringList() : text.split(u'\n');
}
