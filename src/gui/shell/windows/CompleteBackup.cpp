#include "gui/shell/windows/CompleteBackup.h"

#include "core/infra/Clock.h"
#include "core/infra/FirstOf.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/BackupsProject.h"
#include "core/persist/BackupsView.h"

using namespace Qt::StringLiterals;

namespace {

/// A name that no file has, for the archive beside itself.
QString nameAside(const QString& archive) {
  const QString stem = Files().FileWithoutExt(archive) + Clock::now().toString(u"'_'HHmmss"_s);
  QString name = stem + u".zip"_s;
  for (int i = 2; Files().FileExists(name); ++i) {
    name = stem + u'_' + QString::number(i) + u".zip"_s;
  }
  return name;
}

/// The day has one archive of the whole book: an earlier one holds what an earlier change has taken away, so it gives
/// up its name, and nothing is packed over one that can't.
BackupOutcome makeBackup() {
  const QString earlier = newestCompleteBackup(*g_Project);
  if (Files().PathOnly(earlier) != g_Project->TodaysBackupFolder()) {
    return backUpProject(*g_Project, true, false);
  }
  const QString aside = nameAside(earlier);
  if (!Files().MoveFile(earlier, aside)) {
    return {BackupOutcome::Result::Failed,
            {},
            {toldText(shownText(u"The earlier backup could not be renamed, and is left as it is: %1"_s), {earlier})}};
  }
  BackupOutcome outcome = backUpProject(*g_Project, true, false);
  if (!Files().FileExists(earlier)) {
    Files().MoveFile(aside, earlier);
  }
  return outcome;
}

}  // namespace

CompleteBackup CompleteBackup::makeOrAsk(const QString& loss, const QString& question) {
  const BackupOutcome outcome = makeBackup();
  QStringList causes = firstOf(outcome.causes);
  if (g_Project->HoldsUnsaved()) {
    causes.append(shownText(u"What could not be saved is not in it."_s));
  }
  if (causes.isEmpty()) {
    return {true, outcome.archive};
  }
  const QString text =
      translated(u"There is no complete backup of the book as it is now, so %1."_s).arg(translated(loss)) + u"\n\n"_s +
      translatedLines(causes.join(u'\n')) + u"\n\n"_s + translated(question);
  return {toolkit().MsgBox(text, Buttons::NoUnlessYes) == Answer::Yes, {}};
}
