#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class clsScene;

/// The safety copies that an editor keeps of its scene's text in the day's folder of backups: one file, written over,
/// or files at intervals with the time in their names. The settings are read at each check.
class SceneCopies {
 public:
  /// Another scene or text is shown: the first check writes the text in any case.
  void begin(const clsScene& scene);
  /// A run of the timer: files at intervals are due after so many.
  void countRun() { ++BackupTicks; }

  struct Check {
    enum class Result { NothingNew, Done, Failed };
    Result result = Result::NothingNew;
    /// Why it failed, as it may be told to the user.
    QString failure = {};
  };
  /// Sees to it that there is a copy of the text. What could not be written counts as never seen.
  Check AutoBackup(clsScene& scene, const QByteArray& rtf);
  /// The same for what was typed into the scene's plan, beside the copy of the text; written over each time.
  Check copyPlan(clsScene& scene);
  /// Copies that were made before the scene had a file get its name: what is left without one stands for a scene that
  /// was never saved.
  void sceneSaved(clsScene& scene);

 private:
  void nameAfter(const clsScene& scene, const QString& path);
  void write(const QString& path, const QByteArray& rtf);
  void writeTo(const QString& path, clsScene& scene, const QByteArray& rtf);
  void writeOver(clsScene& scene, const QByteArray& rtf);
  void writeNext(clsScene& scene, const QByteArray& rtf);

  /// The text that was checked last, and whether that stands in a file.
  QByteArray LastBackupText;
  bool isInFile_ = false;
  /// Runs of the timer since the last file at intervals.
  int BackupTicks = 0;
  bool BackupNow = true;
  /// The file that is this editor's own to write over.
  QString ownFile_;
  /// Those that were written before the scene had a file.
  QStringList unnamed_;
  QString LastBackupPlan_;
  QString ownPlanFile_;
};
