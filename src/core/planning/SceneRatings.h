#pragma once

#include <QString>
#include <QtGlobal>

#include <array>
#include <vector>

class clsProject;

/// The four ratings of every scene of a book, in the order of the story.
struct SceneRatings {
  static constexpr int kFields = 4;

  struct Scene {
    /// The chapter's position in the book and the scene's in the chapter, both from 1.
    qint32 chapter;
    qint32 index;
    std::array<qint16, kFields> ratings;

    bool operator==(const Scene&) const = default;
  };

  /// Unused scenes and chapters are among them.
  static SceneRatings of(const clsProject& project);

  /// Some scene was rated. The lowest rating is what a scene has that nobody has looked at.
  bool any() const;
  /// What a graph tells, in words: how many scenes there are, and what each field is from the lowest to the highest.
  QString inWords() const;

  bool operator==(const SceneRatings&) const = default;

  /// As the book calls them; a name may be empty.
  std::array<QString, kFields> titles;
  std::vector<Scene> scenes;
};
