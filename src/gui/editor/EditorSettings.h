#pragma once

#include <QString>

/// What a writer settles for all editors, under the keys of the same names.
struct EditorSettings {
  /// Files at intervals, not one that is written over.
  bool AutoBackupSequential = false;
  /// Minutes between two of them.
  int SequentialFrequency = kUsualMinutes;
  /// Each saved text has a mirror as plain text.
  bool CreateTextToo = false;
  bool FontBarFollowsText = true;

  static constexpr int kUsualMinutes = 5;
  /// A day.
  static constexpr int kMostMinutes = 1440;

  static EditorSettings fromSettings();
  /// The minutes stay what they were where there are no intervals.
  void toSettings() const;
};
