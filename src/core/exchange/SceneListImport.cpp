#include "core/exchange/SceneListImport.h"

#include "core/exchange/HtmlReader.h"
#include "core/exchange/ImportedBook.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/cSharedHTML.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kScenesAChapter = 3;

/// Ended by CR LF, LF or CR.
QList<QStringView> linesOf(QStringView text) {
  QList<QStringView> lines;
  qsizetype from = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text[at] != u'\r' && text[at] != u'\n') {
      continue;
    }
    lines.append(text.sliced(from, at - from));
    at += text.sliced(at).startsWith(u"\r\n") ? 1 : 0;
    from = at + 1;
  }
  lines.append(text.sliced(from));
  return lines;
}

QString shortDescription(QStringView line) {
  const qsizetype stop = line.indexOf(u'.');
  const qsizetype call = line.indexOf(u'!');
  const qsizetype end = stop < 0 || (call >= 0 && call < stop) ? call : stop;
  return end < 0 ? translated(u"No short description"_s) : line.first(end + 1).toString();
}

bool isHtml(const QString& text) {
  const QStringView start = QStringView(text).trimmed();
  return Html().TrimHeadTags(text).size() != text.size() || start.startsWith(u"<!doctype html", Qt::CaseInsensitive) ||
         start.startsWith(u"<html", Qt::CaseInsensitive);
}

}  // namespace

SceneListImport SceneListImport::read(const QString& text) {
  const QString source = isHtml(text) ? readHtml(text).plainText() : text;
  SceneListImport list;
  qsizetype index = -1;
  for (const QStringView line : linesOf(source)) {
    ++index;
    if (!line.trimmed().isEmpty()) {
      list.ideas.push_back(
          {shortDescription(line), line.toString(), list.ideas.empty() || index % kScenesAChapter == 0});
    }
  }
  return list;
}

void SceneListImport::fill(clsProject& project) const {
  const qint32 narrator = ImportedBook::begin(project)->ID();
  std::shared_ptr<clsChapter> chapter;
  for (const Idea& idea : ideas) {
    if (idea.opensChapter) {
      chapter = ImportedBook::addChapter(project);
    }
    const auto scene = std::make_shared<clsScene>();
    scene->Title = idea.title;
    scene->DescText = idea.description;
    scene->SetViewpointByID(narrator);
    chapter->Addscene(scene);
  }
}
