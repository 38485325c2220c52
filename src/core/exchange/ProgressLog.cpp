#include "core/exchange/ProgressLog.h"

#include "Version.h"
#include "core/exchange/LogFolder.h"
#include "core/exchange/PublishingScript.h"
#include "core/exchange/TextLines.h"
#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/text/HtmlText.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"\r\n"_s;

/// Once copied a file is the writer's own.
void copyMissing(const LogFolder& logs, const QString& name, const QString& from) {
  const auto original =
      logs.has(name) ? std::nullopt : readWholeFile(Paths::installed(u"WebTemplate"_s) + Paths::separator() + from);
  if (original) {
    logs.write(name, *original);
  }
}

QString total(const QString& what, qint32 words) {
  return what + u": "_s + QString::number(words) + u" (Date: "_s + Dates().ShortFormatDateTime(Clock::now()) + u')' +
         kLine;
}

QString dayLog(const clsProject& project) {
  QString text =
      u"Word count summary for project: "_s + project.Title + u" by "_s + project.AuthorName + kLine + kLine + kLine;
  text += u"Description   Words"_s + kLine;
  for (const auto& chapter : project.Chapters) {
    text += linesOf(chapter->Title).join(u' ') + u", "_s + QString::number(chapter->Wordcount(false)) + u' ' + kLine;
  }
  text += kLine + total(u"Total word count"_s, project.Wordcount(false)) +
          total(u"Total word count (inc Unused)"_s, project.Wordcount(true)) + kLine;
  return text + u"Quillane " QUILLANE_VERSION ", "_s + QString::number(Clock::today().year()) + kLine;
}

QString dayLogName(const clsProject& project) {
  return Clock::today().toString(Qt::ISODate) + u" - "_s +
         Files().FileWithoutExt(Files().FileOnly(project.FileWithPath)) + u".txt"_s;
}

struct Macro {
  QByteArray name;
  QString text;
};

/// The template's bytes stay as they are, in whatever encoding: what takes the macros' places is ASCII, also between
/// the quotes of an attribute. A macro in a title is none.
QByteArray filled(QByteArrayView page, const clsProject& project) {
  const Macro macros[] = {{"$PROJECTTITLE", project.Title},
                          {"$WORDCOUNT", QString::number(project.Wordcount(false))},
                          {"$LASTMOD", Dates().ShortFormatDate(Clock::today())}};
  QByteArray whole;
  qsizetype from = 0;
  for (qsizetype at = page.indexOf('$'); at >= 0; at = page.indexOf('$', at + 1)) {
    const auto* const macro = std::find_if(std::begin(macros), std::end(macros),
                                           [&](const Macro& known) { return page.sliced(at).startsWith(known.name); });
    if (macro != std::end(macros)) {
      whole.append(page.sliced(from, at - from)).append(HtmlText::attribute(macro->text).toLatin1());
      from = at + macro->name.size();
    }
  }
  return whole.append(page.sliced(from));
}

}  // namespace

bool WriteProgressLog() {
  const clsProject& project = *g_Project;
  if (!project.HasPlace()) {
    return false;
  }
  const Guard guard("WriteProgressLog", "modProgressLog");
  const LogFolder logs(project);
  if (!guard([&] { logs.make(); })) {
    return false;
  }
  const std::pair<QString, QString> templates[] = {{u"WebTemplate.txt"_s, u"WebTemplate.txt"_s},
                                                   {u"logo.png"_s, u"Logo.png"_s},
                                                   {u"style.css"_s, u"style.css"_s},
                                                   {PublishingScript::name(), PublishingScript::name()}};
  for (const auto& [name, from] : templates) {
    guard([&] { copyMissing(logs, name, from); });
  }
  guard([&] { logs.write(dayLogName(project), WholeText::toBytes(dayLog(project))); });
  bool isUnasked = false;
  guard([&] {
    const QByteArray page = filled(logs.read(u"WebTemplate.txt"_s), project);
    if (!page.trimmed().isEmpty()) {
      logs.write(u"index.html"_s, page);
      isUnasked = PublishingScript::run();
    }
  });
  return isUnasked;
}
