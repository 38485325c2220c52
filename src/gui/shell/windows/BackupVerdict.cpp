#include "gui/shell/windows/BackupVerdict.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/persist/BackupsProject.h"

using namespace Qt::StringLiterals;

namespace {

const QString kMakeNew = u"\n\nTools - Backups - Backup Entire Project makes a new one."_s;

QString verdictOn(const BackupCheck& check) {
  if (!check.failure.isEmpty()) {
    return u"can't be read: "_s + check.failure + kMakeNew;
  }
  if (check.members == 0) {
    return u"is empty."_s + kMakeNew;
  }
  if (check.isWhole()) {
    return check.members == 1
               ? u"is whole: the one file in it was read back, and its checksum is right."_s
               : u"is whole: all %L1 files in it were read back, and their checksums are right."_s.arg(check.members);
  }
  return u"is damaged. %L1 of the %L2 files in it can't be read back:\n"_s.arg(check.damaged.size())
             .arg(check.members) +
         firstOf(check.damaged).join(u'\n') + kMakeNew;
}

}  // namespace

void verifyAndTell(const QString& archive) {
  const QString made = Dates().ShortFormatDateTime(Files().FileDate(archive));
  const QString what = u"The backup "_s + archive + (made.isEmpty() ? QString() : u" of "_s + made) + u' ';
  const QString verdict = verdictOn(verifyBackup(*g_Project, archive));
  Logging().LogEvent(what + verdict.section(u'\n', 0, 0));
  toolkit().MsgBox(what + verdict);
}
