#include "gui/shell/windows/BackupVerdict.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/persist/BackupsProject.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

/// The log is English, the box is not.
using InWords = QString (*)(const QString&);

QString verdictOn(const BackupCheck& check, const QString& backup, InWords words) {
  const QString makeNew = u"\n\n"_s + words(shownText(u"Tools - Backups - Backup Entire Project makes a new one."_s));
  if (!check.failure.isEmpty()) {
    return words(shownText(u"%1 can't be read: %2"_s)).arg(backup, words(check.failure)) + makeNew;
  }
  if (check.members == 0) {
    return words(shownText(u"%1 is empty."_s)).arg(backup) + makeNew;
  }
  const QString members = QLocale().toString(check.members);
  if (!check.isWhole()) {
    return words(shownText(u"%1 is damaged. %2 of the %3 files in it can't be read back:"_s))
               .arg(backup, QLocale().toString(check.damaged.size()), members) +
           u'\n' + firstOf(check.damaged).join(u'\n') + makeNew;
  }
  if (check.members == 1) {
    return words(shownText(u"%1 is whole: the one file in it was read back, and its checksum is right."_s)).arg(backup);
  }
  return words(shownText(u"%1 is whole: all %2 files in it were read back, and their checksums are right."_s))
      .arg(backup, members);
}

QString verdictOn(const BackupCheck& check, const QString& archive, const QString& made, InWords words) {
  const QString backup = made.isEmpty() ? words(shownText(u"The backup %1"_s)).arg(archive)
                                        : words(shownText(u"The backup %1 of %2"_s)).arg(archive, made);
  return verdictOn(check, backup, words);
}

}  // namespace

void verifyAndTell(const QString& archive) {
  const QString made = Dates().ShortFormatDateTime(Files().FileDate(archive));
  const BackupCheck check = verifyBackup(*g_Project, archive);
  Logging().LogEvent(verdictOn(check, archive, made, [](const QString& text) { return text; }).section(u'\n', 0, 0));
  toolkit().MsgBox(verdictOn(check, archive, made, translated));
}
