#pragma once

#include <QString>
#include <QStringView>

/// What the options of Rtf2Html say.
struct Rtf2HtmlOptions {
  explicit Rtf2HtmlOptions(QStringView options);

  QString LineEnd;  ///< Behind each "<br>".
  qint16 BaseSize = 0;
  bool UseFontFaces = true;
  bool isWhole = false;  ///< "+U".
};
