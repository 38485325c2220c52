#pragma once

#include <QString>

class clsProject;
class clsScene;

/// Where texts go that have no place of their own: a folder for each such book in the program's own folder. Nothing is
/// ever removed from it.
class RescueFolder {
 public:
  explicit RescueFolder(clsProject& project) : project_(project) {}

  /// The book's own, ending in a separator.
  QString path() const;
  /// Writes the scene's text as an RTF file. False, and logged, when that failed.
  bool keep(clsScene& scene) const;
  /// The text stands in the file that keep writes, as it is now.
  bool holds(clsScene& scene) const;
  /// Writes the whole book as one file; its full path, or empty, and logged, when that failed.
  QString keepBook() const;

  /// The file is one that was rescued.
  static bool isBelow(const QString& file);

 private:
  QString nameOfBook() const;
  QString fileOf(clsScene& scene) const;

  clsProject& project_;
};
