#include "core/exchange/Timeline.h"

#include "core/infra/cSharedDateSubs.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

const QString kLineEnd = u"\r\n"_s;
const QString kEmptyCell = u"<td>&nbsp;</td>"_s;

QString heading(const clsProject& project, const QDateTime& now) {
  const QString book = project.Title + u" by "_s + project.AuthorName;
  const QString exported = u" (Exported "_s + Dates().ShortFormatDateTime(now) + u')';
  const QStringList lines{u"<HTML><HEAD><Title>"_s + book + exported + u"</title></HEAD><BODY>"_s,
                          u"<font size=+2><BR><center>"_s,
                          book,
                          u"</font></center>"_s,
                          u"<BR><BR>"_s,
                          u"<table width=100% border=1 cellspacing=2 cellpadding=5>"_s,
                          {}};
  return lines.join(kLineEnd);
}

QString columnHeads(const QStringList& characters) {
  QString row = u"<TR>"_s + kLineEnd;
  for (const QString& name : characters) {
    row += u"<TD align=center><B>"_s + name + u"</b></TD>"_s + kLineEnd;
  }
  return row + u"</TR>"_s + kLineEnd;
}

QString sceneRow(const clsScene& scene, qsizetype column, qsizetype columns) {
  const QString& text = scene.DescText.isEmpty() ? scene.Title : scene.DescText;
  return u"<TR>"_s + kLineEnd + kEmptyCell.repeated(column) + u"<td>"_s + text + u"</td>"_s +
         kEmptyCell.repeated(columns - column - 1) + u"</TR>"_s + kLineEnd;
}

}  // namespace

QString Timeline::page(const clsProject& project, const QStringList& characters, const QDateTime& now) {
  QHash<QString, qsizetype> columns;
  for (qsizetype i = characters.size() - 1; i >= 0; --i) {
    columns.insert(characters.at(i), i);
  }
  QString page = heading(project, now) + columnHeads(characters);
  for (const auto& chapter : project.Chapters) {
    if (chapter->Unused) {
      continue;
    }
    page += u"<TR><TD align=center colspan = "_s + QString::number(characters.size()) + u"> "_s + chapter->Title +
            u"</TD></TR>"_s + kLineEnd;
    for (const qint32 id : chapter->SceneIDs()) {
      const auto scene = project.SceneByID(id);
      const auto column = columns.constFind(scene->ViewPointChar()->Title());
      if (column != columns.constEnd()) {
        page += sceneRow(*scene, *column, characters.size());
      }
    }
  }
  return page + u"</BODY></HTML>"_s + kLineEnd;
}

QString Timeline::pathOf(const clsProject& project) {
  return project.Path() + u"Timeline.html"_s;
}
