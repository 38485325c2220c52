#pragma once

#include "core/planning/Deadlines.h"

#include <QString>

#include <array>

class clsProject;

/// What the window of the project's settings shows of a project and gives back to it.
struct ProjectSettings {
  QString Title;
  QString DescText;
  QString AuthorName;
  QString AuthorBio;
  /// The names of the ratings 1 to 4.
  std::array<QString, 4> FieldTitles;
  Deadlines deadlines;

  static ProjectSettings of(const clsProject& project);
  /// All or nothing: throws RuntimeError 5, with a text for the user, for a name of a rating that no file can hold.
  void storeIn(clsProject& project) const;

  bool operator==(const ProjectSettings&) const = default;
};
