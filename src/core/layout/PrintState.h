#pragma once

#include "core/layout/PrintedPage.h"

#include <QString>

/// How reports are printed, as last chosen in the printer window: global for the run.
struct PrintState {
  /// A blank line after each line of text; wins over the next.
  bool PrintDoubleSpaced = false;
  /// Half a line of extra room after each line of text.
  bool PrintOneAndHalf = false;
  qint16 PrintFontSize = 10;
  QString PrintFontName;

  bool operator==(const PrintState&) const = default;
  PrintFont font() const { return {PrintFontName, static_cast<double>(PrintFontSize), false}; }

  /// As it was chosen last, in this run or an earlier one.
  static PrintState current();
  /// From now on, and kept with the settings.
  void makeCurrent() const;
  void store() const;
};
