#pragma once

#include "core/layout/PrintFlow.h"
#include "core/layout/PrintTarget.h"

#include <QString>

#include <functional>

class clsChapter;
class clsScene;

/// The error that a print ends with when the user wants no more of it.
inline constexpr int kPrintCancelled = 24000;

/// Places of chapters in the book, from 1; both belong to the range.
struct ChapterRange {
  qint32 first = 1;
  qint32 last = 0;
};

/// What a report needs besides the book to become pages.
struct ReportJob {
  const TextMeasure& measure;
  PrintState state;
  PrintProgress& progress;
  ChapterRange chapters = {};
  /// The scenes with what was planned of them, for the reports that print the story itself.
  bool details = false;
};

/// Lays a report out.
using ReportLayout = std::function<PrintDocument(const ReportJob&)>;

namespace Reports {

/// The chapters of the range that are used, with their number in the book.
using EachChapter = std::function<void(clsChapter&, qint32 number)>;
void eachUsedChapter(const ChapterRange& chapters, const EachChapter& report);
/// The scenes of a chapter that are used, with their number in it, and whether it is the last.
using EachScene = std::function<void(clsScene&, qint32 number, bool isLast)>;
void eachUsedScene(const clsChapter& chapter, const EachScene& report);
/// The same for a print: each is a step of it.
void eachUsedChapter(const ReportJob& job, const EachChapter& report);
void eachUsedScene(const ReportJob& job, const clsChapter& chapter, const EachScene& report);

/// The number of a scene, as reports tell it.
QString numberOf(qint32 chapter, qint32 scene);

/// What a report of the whole book is called in the document itself.
QString titleOf(const QString& report);
/// The pages of the flow, of the book's author.
PrintDocument finished(const QString& title, PrintFlow& flow);

}  // namespace Reports
