#pragma once

#include <QStringView>

/// Small string routines.
class cSharedText {
 public:
  /// Equal without regard to case and to blanks around.
  static bool StringsEqual(QStringView a, QStringView b);
};
