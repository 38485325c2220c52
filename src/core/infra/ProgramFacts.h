#pragma once

#include <QString>
#include <QStringList>

/// What the program and its surroundings are, for whoever helps with it. Nothing of the book.
namespace ProgramFacts {

struct Library {
  QString name;
  /// As loaded; "not found" for one that isn't there.
  QString version;
};

QString version();
QString licence();
QList<Library> libraries();
/// Where the program keeps its own files.
QStringList places();
/// All of it, a line each.
QString report();

}  // namespace ProgramFacts
