#include "gui/editor/SceneCopies.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/persist/SceneCopy.h"
#include "gui/editor/EditorSettings.h"

using namespace Qt::StringLiterals;

void SceneCopies::begin() {
  LastBackupText.clear();
  isInFile_ = false;
  BackupTicks = 0;
  BackupNow = true;
  ownFile_.clear();
}

SceneCopies::Check SceneCopies::AutoBackup(clsScene& scene, const QByteArray& rtf) {
  const bool isNew = rtf != LastBackupText;
  // Nothing is no copy worth the place of another.
  if (!isNew && (isInFile_ || rtf.isEmpty())) {
    return {};
  }
  const auto settings = EditorSettings::fromSettings();
  const bool isDue = !settings.AutoBackupSequential || BackupNow || BackupTicks >= settings.SequentialFrequency;
  const QString failure = Guard("AutoBackup", "frmEditor").causeOf([&] {
    if (!settings.AutoBackupSequential) {
      writeOver(scene, rtf);
    } else if (isDue) {
      writeNext(scene, rtf);
    }
  });
  if (!failure.isEmpty()) {
    return {Check::Result::Failed, failure};
  }
  LastBackupText = rtf;
  isInFile_ = isDue;
  return {isNew || isDue ? Check::Result::Done : Check::Result::NothingNew};
}

void SceneCopies::writeTo(const QString& path, clsScene& scene, const QByteArray& rtf) {
  if (path != ownFile_) {
    SceneCopy::putAside(scene, path, rtf);
  }
  SceneCopy::write(path, rtf);
  ownFile_ = path;
}

void SceneCopies::writeOver(clsScene& scene, const QByteArray& rtf) {
  writeTo(SceneCopy::nameOf(scene) + u".rtf"_s, scene, rtf);
}

void SceneCopies::writeNext(clsScene& scene, const QByteArray& rtf) {
  writeTo(SceneCopy::nameOf(scene) + u'_' + Clock::now().toString(SceneCopy::kTime) + u".rtf"_s, scene, rtf);
  BackupTicks = 0;
  BackupNow = false;
}
