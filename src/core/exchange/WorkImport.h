#pragma once

#include "core/text/RichText.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

class clsProject;

/// A manuscript in one piece as chapters and scenes.
struct WorkImport {
  /// The RTF of a chapter's scenes.
  using Chapter = std::vector<QByteArray>;

  std::vector<Chapter> chapters;
  qint32 scenes = 0;
  /// Of the scenes.
  qint32 words = 0;
  /// In front of the first heading: they are in no chapter.
  qint32 wordsInFront = 0;

  /// A chapter begins wherever "chapter " stands, in any case, and goes on to the next or to the end; its heading is a
  /// part of it. "* * *" parts its scenes, and goes with the line that it has to itself. What our own exports put
  /// between the texts goes: "[PB]", titles that the chapters get anyway, and the empty lines around. Nothing when
  /// `goOn`, which is asked at each scene, wants no more.
  static std::optional<WorkImport> cut(
      const RichText& text, const std::function<bool()>& goOn = [] { return true; });

  /// Puts them in the place of all that the project holds. Nothing is saved.
  void fill(clsProject& project) const;
};
