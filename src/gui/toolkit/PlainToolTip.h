#pragma once

#include <QString>
#include <QTextDocument>

/// A text as a tool tip that shows it as it stands, in lines. Whatever a writer or a file has named goes through here:
/// by itself a tool tip takes "<b>" for a command and "<img>" for a file to open.
inline QString plainToolTip(const QString& text) {
  return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}
