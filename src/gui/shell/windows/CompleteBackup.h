#pragma once

#include <QString>

/// A complete backup of the book, made before much of it changes at once.
struct CompleteBackup {
  bool mayGoOn = false;
  /// Full path; empty when there is none, or not all is in it.
  QString archive;

  /// An earlier one of the same day stays beside it. Where not all of the book can be packed the writer is asked
  /// whether to go on: "... so " `loss`, such as "the former texts could not be brought back".
  static CompleteBackup makeOrAsk(const QString& loss, const QString& question);
};
