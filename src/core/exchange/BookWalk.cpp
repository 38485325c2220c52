#include "core/exchange/BookWalk.h"

#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void BookWalk::eachChapter(const EachChapter& visit) const {
  const qint32 last = std::min(span_.last, g_Project->ChapterCount());
  for (qint32 number = std::max(span_.first, 1); number <= last; ++number) {
    const auto chapter = g_Project->ChapterByIndex(number);
    if (withUnused_ || !chapter->Unused) {
      visit(chapter, number);
    }
  }
}

void BookWalk::eachScene(const std::shared_ptr<clsChapter>& chapter, const EachScene& visit) {
  for (qint32 index = 1; index <= chapter->SceneCount(); ++index) {
    const auto scene = chapter->SceneByIndex(index);
    if (scene->InScenes() && (withUnused_ || !scene->Unused)) {
      step_(++begun_);
      visit(*scene, index);
    }
  }
}

bool isParted(const clsChapter& chapter, qint32 index) {
  return index < chapter.SceneCount() && !chapter.SceneByIndex(index + 1)->Unused;
}

QStringList unreadTexts(bool withUnused, ChapterSpan span) {
  QStringList titles;
  BookWalk walk([](qint32) {}, withUnused, span);
  walk.eachChapter([&](const auto& chapter, qint32) {
    walk.eachScene(chapter, [&](const clsScene& scene, qint32) {
      if (scene.TextUnread()) {
        titles.append(calledScene(scene.Title));
      }
    });
  });
  return titles;
}

QString withLineEnds(const QString& text) {
  if (!text.contains(u'\n') && !text.contains(u'\r')) {
    return text;
  }
  QString lines = text;
  lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u"\n"_s, u"\r\n"_s);
  return lines;
}
