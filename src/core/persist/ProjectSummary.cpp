#include "core/persist/ProjectSummary.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace modConstXML;

ProjectSummary ProjectSummary::of(QByteArrayView projectFile) {
  const TagIndex index(projectFile);
  const TagView whole(index);
  ProjectSummary summary;
  for (const TagView& piece : whole.block(kScenes).split(Tag(kScene).close)) {
    if (piece.contains(kScene)) {
      ++summary.scenes;
      summary.words += piece.integer32(kWordCount);
    }
  }
  for (const TagView& piece : whole.block(kChapters).split(Tag(kChapter).close)) {
    summary.chapters += piece.contains(kChapter) ? 1 : 0;
  }
  return summary;
}

ProjectSummary ProjectSummary::of(const clsProject& project) {
  ProjectSummary summary{project.ChapterCount(), project.SceneCount(), 0};
  for (const auto& scene : project.Scenes) {
    summary.words += scene->Wordcount();
  }
  return summary;
}

QString ProjectSummary::described(const QString& path, const QDateTime& date) const {
  return translated(u"%1 (%2, %3 words)"_s)
      .arg(Files().FileOnly(path), date.toString(u"yyyy-MM-dd HH:mm"_s), QLocale().toString(words));
}

QString ProjectSummary::described(const QString& path) {
  QByteArray text;
  Files().LoadTextFile(path, text);
  return of(text).described(path, Files().FileDate(path));
}
