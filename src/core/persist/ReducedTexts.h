#pragma once

#include "core/text/Rtf.h"

#include <QString>
#include <QStringList>

class clsScene;

/// The texts that a work over the whole book rewrites though they hold what can't be kept. The files as they were are
/// with the day's backups.
class ReducedTexts {
 public:
  /// To be called with what would be lost, if anything, before the scene gets its new text. Throws RuntimeError when
  /// the text could not be copied first: it has to stay as it is then.
  void keepOriginal(clsScene& scene, RtfLosses losses);
  /// Which texts these are, what they held, and where the files are; empty for none.
  QString remark() const;

 private:
  QStringList titles_;
  RtfLosses losses_;
};
