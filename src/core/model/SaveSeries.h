#pragma once

/// While one lives, scenes are saved by themselves in a row: the folder of their texts is flushed to disk once, at the
/// end, in place of behind each. Until then each file is whole, as it was or as it shall be.
class SaveSeries {
 public:
  SaveSeries() { ++living_; }
  ~SaveSeries();
  SaveSeries(const SaveSeries&) = delete;
  SaveSeries& operator=(const SaveSeries&) = delete;

  /// A name is new in the folder: it is flushed now, or at the end of the series.
  static void nameIsNew();

  /// It is flushed at once.
  static void flush();

 private:
  static inline int living_ = 0;
  static inline bool due_ = false;
};
