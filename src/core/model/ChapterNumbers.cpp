#include "core/model/ChapterNumbers.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString numbered(const QString& word, qint64 number) {
  return word + u' ' + QString::number(number);
}

}  // namespace

namespace ChapterNumbers {

QStringList words() {
  QStringList words{u"Chapter"_s, translated(u"Chapter"_s)};
  words.removeDuplicates();
  return words;
}

QStringList titles(qint64 number) {
  QStringList titles = words();
  std::transform(titles.begin(), titles.end(), titles.begin(),
                 [number](const QString& word) { return numbered(word, number); });
  return titles;
}

QString title(qint64 number) {
  return titles(number).constLast();
}

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
  const QStringList words = ChapterNumbers::words();
  qint32 number = 0;
  qint32 changed = 0;
  for (const auto& chapter : project.Chapters) {
    const auto word = std::find_if(words.begin(), words.end(), [&](const QString& called) {
      return chapter->Title.contains(called, Qt::CaseInsensitive);
    });
    if (word == words.end()) {
      continue;
    }
    const QString title = numbered(*word, ++number);
    if (chapter->Title != title) {
      Logging().LogEvent(u"Renamed chapter "_s + chapter->Title + u" to "_s + title);
      chapter->Title = title;
      ++changed;
    }
  }
  return changed;
}

}  // namespace ChapterNumbers
