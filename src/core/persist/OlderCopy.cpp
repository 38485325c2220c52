#include "core/persist/OlderCopy.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ConflictCopy.h"
#include "core/persist/ProjectSaver.h"
#include "core/persist/ProjectSummary.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QStringList OlderCopy::othersInFolder() const {
  QStringList others;
  for (const QFileInfo& file : QDir(project_.Path()).entryInfoList({u"*.qn4"_s}, QDir::Files, QDir::Time)) {
    const bool isItself = Paths::areSame(file.filePath(), project_.FileWithPath);
    if (!isItself && !ConflictCopy::isOne(file.fileName())) {
      others.append(QDir::toNativeSeparators(file.filePath()));
    }
  }
  return others;
}

QStringList OlderCopy::threatened(Texts texts) const {
  const QString& target = project_.FileWithPath;
  if (!Paths::areSame(target, project_.storedIn_) && Files().FileExists(target)) {
    return {target};
  }
  if (!project_.IsInOwnFolder()) {
    QStringList others = othersInFolder();
    QStringList files;
    Files().FillFiles(project_.RTFFolder(), u"rtf"_s, files);
    return others.isEmpty() && !files.isEmpty() ? QStringList{project_.RTFFolder()} : others;
  }
  if (texts == Texts::ThatAreDue && project_.UnsavedTexts() == 0) {
    return {};
  }
  QStringList others = othersInFolder();
  const bool isSingleFile = Files().ExtOnly(project_.storedIn_).toLower() == u"qnc4"_s;
  if (others.isEmpty() && isSingleFile && Files().FolderExists(project_.RTFFolder())) {
    others.append(project_.RTFFolder());
  }
  return others;
}

QString OlderCopy::question(const QStringList& others) const {
  QStringList described;
  for (const QString& other : others) {
    described.append(Files().FileExists(other) ? ProjectSummary::described(other) : other);
  }
  const QString opened =
      ProjectSummary::of(project_).described(project_.storedIn_, Files().FileDate(project_.storedIn_));
  return translated(u"You opened %1."_s).arg(opened) + u"\n\n"_s +
         translated(u"Saved here it would replace, with the texts of its scenes:"_s) + u'\n' +
         firstOf(described, 3).join(u'\n') + u"\n\n"_s + translated(u"How do you want to save it?"_s);
}

OlderCopy::Answer OlderCopy::settle(Texts texts) {
  const bool isOpen = !project_.storedIn_.isEmpty() && (project_.freshlyRead_ || !project_.IsInOwnFolder());
  const QStringList others = isOpen ? threatened(texts) : QStringList();
  if (others.isEmpty()) {
    return Answer::NothingToAsk;
  }
  switch (toolkit().Choose({question(others), {shownText(u"Save under a new name"_s), shownText(u"Replace"_s)}, 0})) {
    case 0:
      return Answer::NewName;
    case 1:
      project_.freshlyRead_ = false;
      return Answer::Replace;
    default:
      return Answer::GiveUp;
  }
}

bool OlderCopy::mayWriteTexts() {
  if (project_.IsBusy()) {
    return true;
  }
  switch (settle()) {
    case Answer::NothingToAsk:
    case Answer::Replace:
      return true;
    case Answer::NewName:
      ProjectSaver(project_).saveElsewhere();
      return false;
    default:
      return false;
  }
}
