#pragma once

#include <QString>
#include <QTime>

/// A book that is to be begun: what it is called, by whom, and the folder that it gets for itself.
struct NewBook {
  QString title;
  QString author;
  /// In full, with a separator at its end.
  QString folder;

  /// The title as the name of a file: what no file may be called on one of the usual systems becomes a blank, and
  /// what is too long is cut. A title that leaves nothing to call a file gives "MyProject".
  QString fileName() const;
  /// The project file to be made.
  QString file() const;
  /// Another one beside it, which isn't there yet: the seconds since midnight are in its name.
  QString fileBeside(QTime now) const;
};

/// Whether a folder can hold a new book.
namespace NewBookFolder {

/// What was typed as a path, in full and with a separator at its end; empty for blanks. What doesn't begin at a root
/// stands in the documents folder, "~" for the home folder.
QString named(const QString& typed);
/// It, or the nearest folder above it that is there.
QString nearestThere(const QString& folder);
/// Why no new book can stand in the folder, for the user; empty for one that is free, or that can be made as far as
/// this shows without trying.
QString whyNot(const QString& folder);
/// Makes what is missing of the folder. Why no new book can stand there all the same; empty when it can.
QString make(const QString& folder);

}  // namespace NewBookFolder
