#include "gui/editor/SceneCopies.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneCopy.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorSettings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool holdsPlan(const QString& path, const QString& plan) {
  QByteArray rtf;
  return Files().LoadTextFile(path, rtf) && rtfToPlainText(rtf) == RichText::fromPlain(plan).text();
}

/// The file keeps its name when the other one is taken.
void rename(QString& path, const QString& name) {
  if (!path.isEmpty() && SceneCopy::isOfUnsaved(path) && !QFileInfo::exists(name) && Files().MoveFile(path, name)) {
    path = name;
  }
}

}  // namespace

void SceneCopies::begin(const clsScene& scene) {
  LastBackupText.clear();
  isInFile_ = false;
  BackupTicks = 0;
  BackupNow = true;
  ownFile_.clear();
  LastBackupPlan_ = SceneCopy::planOf(scene);
  ownPlanFile_.clear();
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
    SceneCopy::putAside(path, rtf, SceneCopy::textSaved(scene));
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

SceneCopies::Check SceneCopies::copyPlan(clsScene& scene) {
  const QString plan = SceneCopy::planOf(scene);
  if (plan == LastBackupPlan_) {
    return {};
  }
  const QString failure = Guard("AutoBackup", "frmEditor").causeOf([&] {
    const QString path = SceneCopy::nameOf(scene) + SceneCopy::kPlan + u".rtf"_s;
    const QByteArray rtf = writeRtf(RichText::fromPlain(plan));
    // The project file is saved for many reasons: its time says nothing of one scene's plan.
    if (path != ownPlanFile_ && !holdsPlan(path, LastBackupPlan_)) {
      SceneCopy::putAside(path, rtf, {});
    }
    SceneCopy::write(path, rtf);
    ownPlanFile_ = path;
    LastBackupPlan_ = plan;
  });
  return {failure.isEmpty() ? Check::Result::Done : Check::Result::Failed, failure};
}

void SceneCopies::sceneSaved(clsScene& scene) {
  if (!scene.RTFFilename().isEmpty()) {
    rename(ownFile_, SceneCopy::nameOf(scene) + u".rtf"_s);
    rename(ownPlanFile_, SceneCopy::nameOf(scene) + SceneCopy::kPlan + u".rtf"_s);
  }
}
