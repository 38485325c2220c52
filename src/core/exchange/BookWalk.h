#pragma once

#include "core/exchange/ExportStep.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

class clsChapter;
class clsScene;

/// What of the book goes into a manuscript.
struct ManuscriptOptions {
  /// The scenes' titles and descriptions in front of their texts.
  bool summaries = false;
  /// Chapters and scenes that were set aside too.
  bool unused = false;
};

/// Places of chapters in the book, from 1; both belong to it.
struct ChapterSpan {
  qint32 first = 1;
  qint32 last = std::numeric_limits<qint32>::max();
};

/// The chapters and scenes of the book in order, as exports go through them.
class BookWalk {
 public:
  /// Numbers count from 1, unused ones too.
  using EachChapter = std::function<void(const std::shared_ptr<clsChapter>&, qint32 number)>;
  using EachScene = std::function<void(clsScene&, qint32 index)>;

  explicit BookWalk(ExportStep step, bool withUnused = true, ChapterSpan span = {})
      : step_(std::move(step)), withUnused_(withUnused), span_(span) {}

  void eachChapter(const EachChapter& visit) const;
  /// With a step in front of each. What a chapter names and the book lacks is passed over.
  void eachScene(const std::shared_ptr<clsChapter>& chapter, const EachScene& visit);

 private:
  ExportStep step_;
  bool withUnused_;
  ChapterSpan span_;
  qint32 begun_ = 0;
};

/// Whether a manuscript has "* * *" behind the scene: another follows, and that one isn't set aside, whether such
/// scenes go in or not.
bool isParted(const clsChapter& chapter, qint32 index);

/// Titles of the scenes that go in, but whose texts could not be read when the book was opened.
QStringList unreadTexts(bool withUnused, ChapterSpan span = {});

/// The text with CR LF at the end of each line, however they ended.
QString withLineEnds(const QString& text);
