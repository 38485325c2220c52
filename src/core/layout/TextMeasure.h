#pragma once

#include "core/layout/PrintedPage.h"

#include <QStringView>

/// How much room a text takes on paper, in twips.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual double width(QStringView text, const PrintFont& font) const = 0;
  /// From one line to the next.
  virtual double lineHeight(const PrintFont& font) const = 0;
};
