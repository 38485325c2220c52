#pragma once

#include "core/infra/FileStamp.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

class LongWork;
class clsProject;

/// Reads a project from its file, and tells the user what could not be read.
class ProjectLoader {
 public:
  explicit ProjectLoader(clsProject& project) : project_(project) {}

  /// True on success; a failure leaves an empty project. Refused, and logged, while the project is busy.
  bool load(const QString& file, bool showProgress);

 private:
  bool mayOpenFolder(const QString& file);
  bool loadQN4(const QString& file, bool showProgress);
  /// Reads the older project, saves it in the present form and gives the old file another name.
  bool convertQN3(const QString& file, bool showProgress);
  bool readQN3(const QString& file, bool showProgress);
  /// False when nothing of it could be read.
  bool ImportQN3(const QString& file, bool showProgress);
  bool saveConverted(const QString& file);
  /// Reads the book from the text of a project file and tells what went wrong.
  bool readBook(const QString& file, QByteArrayView text, bool showProgress);
  bool readText(LongWork& work, QByteArrayView text);
  bool readBlocks(LongWork& work, QByteArrayView text);
  /// What becomes of a file that was cut off: true when a book is to be shown.
  bool settleIncomplete(const QString& file, bool isRead, bool showProgress);
  void beginEmptyBook(const QString& file);
  QString whatWasFound(bool isRead, qsizetype texts) const;
  qsizetype filesBesideIt(const QString& file) const;
  /// Texts that an editor has saved behind the project file, or another program wrote.
  void recountYounger(const QString& file, const FileStamp& projectFile) const;
  void tellFailure() const;
  void tellFindings() const;
  void tellUnreadTexts() const;

  clsProject& project_;
  /// The scene file that ended the load.
  QString missingText_;
  QStringList findings_;
};
