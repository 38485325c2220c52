#pragma once

#include <QString>
#include <QStringView>

#include <vector>

class clsProject;

/// Ideas of scenes, a line for each.
struct SceneListImport {
  struct Idea {
    /// Up to the first sentence's end.
    QString title;
    QString description;
    /// A new chapter begins with it.
    bool opensChapter = false;
  };

  std::vector<Idea> ideas;

  /// Every third line opens a chapter, empty lines counted, and so does the first idea. Of a page of HTML the lines are
  /// its paragraphs.
  static SceneListImport read(const QString& text);

  /// Puts them in the place of all that the project holds. Nothing is saved.
  void fill(clsProject& project) const;
};
