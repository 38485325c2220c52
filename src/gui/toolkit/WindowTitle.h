#pragma once

#include <QString>

/// A text as part of a window's title. A lone "[*]" in it would stand for the mark of a modified document.
inline QString literalTitle(QString text) {
  return text.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}
