#pragma once

#include "core/model/StoryMoves.h"
#include "core/reports/PrintReport.h"

#include <QList>
#include <QString>

#include <functional>

/// A report that is to be printed.
struct PrintOrder {
  /// Under this key the printer of such reports is remembered.
  QString key = {};
  QString prompt = {};
  /// What a PDF file of it is called at first.
  QString name = {};
  ReportLayout report = {};
  ChapterRange chapters = {};
  /// The printer window asks whether to print the scenes' details.
  bool offersDetails = false;
  /// Told when it has been printed; empty for nothing but where a PDF file is.
  QString told = {};
  /// Under these names a failure of the report stands in the log; plain literals.
  const char* routine = "PrintReport";
  const char* module = "modRoutines";
};

/// Shows the report as it would be printed; true when it is to be printed so.
using PrintPreview = std::function<bool(const PrintState& state, bool details)>;

/// Asks for the printer; the one that is chosen is the one in use then. Throws the error of a cancelled print when the
/// user chooses none. True when details are wanted too.
bool SelectPrinter(const PrintOrder& order, const PrintPreview& preview);

/// The whole way from the choice of the printer to the paper, with a look at the pages on the way where the user wants
/// one. What fails is told. True when it was printed; nothing happens while the book is busy.
bool printReport(const PrintOrder& order);

/// The same for these scenes.
bool printScenes(const QList<qint32>& sceneIDs);
/// The same for all characters, locations or items.
bool printCast(CastKind kind);

/// What a file of a report of this book may be called, in the language that is in force and without an extension.
QString printFileName(const QString& report);
