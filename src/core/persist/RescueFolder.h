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
  /// Writes the whole book as one file; its full path, or empty, and logged, when that failed.
  QString keepBook() const;

 private:
  QString nameOfBook() const;

  clsProject& project_;
};
