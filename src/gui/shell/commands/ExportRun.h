#pragma once

#include "core/exchange/ExportStep.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>

struct FileQuestion;

/// An export of the book, on the way from its questions to what is told in the end.
struct ExportJob {
  /// As the log names it.
  const char* routine;
  const char* module;
  /// What is written, for what is told of a failure.
  QString path;
  /// Writes it whole or not at all, and calls the step between two pieces.
  std::function<void(const ExportStep&)> work;
};

/// Runs it with progress and a Stop. True when it was done; else the user has been told why it wasn't.
bool runExport(const ExportJob& job);

/// Puts these bytes into the file in one step: whatever fails, the former one stays. It can be exported again, so
/// nobody waits until its name has reached the disk too. Throws RuntimeError.
void writeExport(const QString& path, QByteArrayView bytes);

/// Asks for the file of an export; empty when the user wants none. A file that holds the book itself is refused, and
/// another asked for.
QString askForExportFile(const FileQuestion& question);

/// The book's own; empty where it has none.
QString folderForExports();

/// Where an export goes that has a name of its own: into the book's folder. The user is asked where the book has no
/// folder, or is read-only there; empty when no place is wanted.
QString placeOfExport(const QString& name);

/// What the user has to know of an export that was done: texts that are missing in it, because they could not be read
/// when the book was opened or are still being written. Empty when it is whole.
QString missingTexts(bool withUnused);
/// The same of these.
QString missingTexts(const QStringList& unread);
