#include "gui/shell/commands/ChapterNumbers.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ChapterNumbers {

qint64 inTitle(QStringView title) {
  constexpr double kMost = 1e15;
  const QStringView trimmed = title.trimmed();
  const qsizetype blank = trimmed.lastIndexOf(u' ');
  return blank < 0 ? 0 : static_cast<qint64>(std::clamp(Numbers::Val(trimmed.sliced(blank + 1)), -kMost, kMost));
}

qint64 highest(const clsProject& project) {
  qint64 found = 0;
  for (const auto& chapter : project.Chapters) {
    found = std::max(found, inTitle(chapter->Title));
  }
  return found;
}

qint32 renumber(clsProject& project) {
  qint32 number = 0;
  qint32 changed = 0;
  for (const auto& chapter : project.Chapters) {
    if (!chapter->Title.contains(u"chapter", Qt::CaseInsensitive)) {
      continue;
    }
    const QString title = u"Chapter "_s + QString::number(++number);
    if (chapter->Title != title) {
      Logging().LogEvent(u"Renamed chapter "_s + chapter->Title + u" to "_s + title);
      chapter->Title = title;
      ++changed;
    }
  }
  return changed;
}

}  // namespace ChapterNumbers
