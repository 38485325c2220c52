#pragma once

#include "core/persist/BackupsView.h"

#include <QDateTime>
#include <QString>

#include <vector>

class clsScene;

/// A copy of a scene's text: a file in the folders of backups, or one in an archive.
struct BackupCopy {
  /// The file's name; in an archive with its folders.
  QString name;
  /// Full path of the file.
  QString path;
  /// That of the archive it is in; empty for a file of its own.
  QString archive;
  QDateTime date;
  /// The scene that it is of; 0 when the book has none such any more.
  qint32 sceneID = 0;

  /// What its list shows of it: the scene, and what it is if not a copy of the text as it was typed.
  QString title() const;
  /// The text's bytes, or why they can't be had.
  RestoredFile read() const;
};

/// What the scene of a copy is called where copies are told of; null for one that was never saved.
QString titleInCopies(const clsScene* scene);

struct BackupCopies {
  /// Those of one scene together, the older ones first.
  std::vector<BackupCopy> copies;
  /// What is to be said where there are none.
  QString whyNone;

  /// What stands in a folder of the backups.
  static BackupCopies inFolder(const QString& folder);
  static BackupCopies inArchive(const QString& archive);
};
