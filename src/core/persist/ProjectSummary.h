#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

class clsProject;

/// What tells two copies of a book apart.
struct ProjectSummary {
  qint32 chapters = 0;
  qint32 scenes = 0;
  /// The counts that the file holds; scenes without one count for nothing.
  qint64 words = 0;

  static ProjectSummary of(QByteArrayView projectFile);
  static ProjectSummary of(const clsProject& project);
  /// "Book.qn4 (2026-11-20 18:05, 52,310 words)", of a file on the disk.
  static QString described(const QString& path);
  QString described(const QString& path, const QDateTime& date) const;
};
