#include "gui/views/PrintRun.h"

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/reports/modPrintLists.h"
#include "core/reports/modPrintProject.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/PagePainter.h"
#include "gui/toolkit/cSharedPrinter.h"
#include "gui/views/frmPrintPreview.h"
#include "gui/views/frmPrinterSetup.h"

#include <QScopeGuard>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kNotLaidOut = shownText(u"The report could not be laid out."_s);

[[noreturn]] void cancel(const QString& why) {
  throw RuntimeError(kPrintCancelled, why, u"SelectPrinter"_s);
}

/// A print as a long work that can be stopped.
class PrintWork : public PrintProgress {
 public:
  PrintWork() : work_(*g_Project, shownText(u"Printing"_s), false, LongWork::Stop::Offered) {}

  void step(const QString& pattern, qint32 number) override {
    work_.setCaption(pattern, number);
    work_.showIfLong();
    if (work_.stopWanted()) {
      cancel(u"The print was stopped"_s);
    }
  }

 private:
  LongWork work_;
};

/// Runs a piece of a print. False when the user has stopped it; what fails otherwise is the caller's.
template <class Piece>
bool unlessStopped(Piece piece) {
  try {
    piece();
    return true;
  } catch (const RuntimeError& error) {
    if (error.number() != kPrintCancelled) {
      throw;
    }
    Logging().LogEvent(error.description());
    return false;
  }
}

/// A report between the printer window and the paper. What was laid out for a look is printed as it was seen.
class ReportRun {
 public:
  explicit ReportRun(const PrintOrder& order) : order_(order) {}

  /// True when the user wants it printed as it is shown.
  bool preview(const PrintState& state, bool details);
  /// On the printer in use.
  bool print(bool details);

 private:
  template <class Piece>
  bool isWhole(const QString& failure, Piece piece) const;
  void layOut(const TextMeasure& measure, const PrintState& state, bool details, PrintProgress& progress);
  bool hasPages() const;

  const PrintOrder& order_;
  /// Laid out so; null when nothing was.
  std::shared_ptr<const PrintDocument> document_;
  PrintState state_;
  bool details_ = false;
};

/// Runs a piece of it under its own names. False when it was stopped or failed, which is told once the work is over
/// that it was a part of.
template <class Piece>
bool ReportRun::isWhole(const QString& failure, Piece piece) const {
  bool isDone = false;
  const QString cause = Guard(order_.routine, order_.module).causeOf([&] { isDone = unlessStopped(std::move(piece)); });
  if (!cause.isEmpty()) {
    toolkit().MsgBox(translated(failure) + u"\n\n"_s + translated(cause));
  }
  return isDone;
}

void ReportRun::layOut(const TextMeasure& measure, const PrintState& state, bool details, PrintProgress& progress) {
  if (document_ && state == state_ && details == details_) {
    return;
  }
  document_.reset();
  document_ =
      std::make_shared<const PrintDocument>(order_.report({measure, state, progress, order_.chapters, details}));
  state_ = state;
  details_ = details;
}

bool ReportRun::hasPages() const {
  if (document_->pages.empty()) {
    toolkit().MsgBox(u"There is nothing to print."_s);
    return false;
  }
  return true;
}

bool ReportRun::preview(const PrintState& state, bool details) {
  const bool isThere = isWhole(kNotLaidOut, [&] {
    const QtTextMeasure measure;
    PrintWork work;
    layOut(measure, state, details, work);
  });
  if (!isThere || !hasPages()) {
    return false;
  }
  const OverActiveWindow<frmPrintPreview> form(document_);
  return form.accepted();
}

QString whatCouldNotBePrinted() {
  return Printers().Name() == cSharedPrinter::pdfFile()
             ? translated(u"The file %1 could not be written."_s).arg(Printers().PdfPath)
             : translated(u"The report could not be printed on %1."_s).arg(Printers().Name());
}

bool ReportRun::print(bool details) {
  QString failure = whatCouldNotBePrinted();
  const bool isPrinted = isWhole(failure, [&] {
    const auto target = Printers().open();
    failure = kNotLaidOut;
    PrintWork work;
    layOut(target->measure(), PrintState::current(), details, work);
    failure = whatCouldNotBePrinted();
    if (!document_->pages.empty()) {
      target->print(*document_, work);
    }
  });
  return isPrinted && hasPages();
}

/// In one box: what is told of this report, and where a file of it is.
void tellDone(const QString& told) {
  QStringList parts;
  if (!told.isEmpty()) {
    parts.append(translated(told));
  }
  if (Printers().Name() == cSharedPrinter::pdfFile()) {
    parts.append(translated(u"The report is in the file %1"_s).arg(Printers().PdfPath));
  }
  if (!parts.isEmpty()) {
    toolkit().MsgBox(parts.join(u"\n\n"_s));
  }
}

QString shortened(const QString& text, qsizetype length) {
  const bool cutsLetter = text.size() > length && text.at(length - 1).isHighSurrogate();
  return text.left(cutsLetter ? length - 1 : length);
}

/// Nothing when the user wants no print after all.
std::optional<bool> chosenDetails(const PrintOrder& order, ReportRun& run) {
  std::optional<bool> details;
  const auto look = [&run](const PrintState& state, bool withDetails) { return run.preview(state, withDetails); };
  Guard("SelectPrinter", "modRoutines")([&] { unlessStopped([&] { details = SelectPrinter(order, look); }); });
  return details;
}

}  // namespace

bool SelectPrinter(const PrintOrder& order, const PrintPreview& preview) {
  const OverActiveWindow<frmPrinterSetup> form;
  form->SuggestName(order.name);
  form->OfferPreview(preview);
  if (order.offersDetails) {
    form->OfferDetails();
  }
  form->ShowForm(order.key, order.prompt);
  if (!form.isThere() || form->Cancelled) {
    cancel(u"No printer was chosen"_s);
  }
  return form->Details;
}

bool printReport(const PrintOrder& order) {
  if (g_Project->IsBusy()) {
    return false;
  }
  Printers().StoreDefaultPrinter();
  const auto restored = qScopeGuard([] { Printers().RestoreDefaultPrinter(); });
  ReportRun run(order);
  const std::optional<bool> details = chosenDetails(order, run);
  const bool isDone = details && run.print(*details);
  if (isDone) {
    tellDone(order.told);
  }
  return isDone;
}

bool printScenes(const QList<qint32>& sceneIDs) {
  return printReport({.key = u"StoryFile"_s,
                      .prompt = shownText(u"Print scene(s)"_s),
                      .name = printFileName(shownText(u"Scenes"_s)),
                      .report = [sceneIDs](const ReportJob& job) { return PrintScenes(job, sceneIDs); },
                      .routine = "PrintScene",
                      .module = "modPrintProject"});
}

bool printCast(CastKind kind) {
  const auto print = [](const QString& key, const ReportLayout& report, const char* routine) {
    return printReport({.key = key,
                        .prompt = shownText(u"Click PRINT to continue."_s),
                        .name = printFileName(key),
                        .report = report,
                        .routine = routine,
                        .module = "modPrintLists"});
  };
  switch (kind) {
    case CastKind::Character:
      return print(shownText(u"Character List"_s), &PrintCharList, "PrintCharList");
    case CastKind::Location:
      return print(shownText(u"Location List"_s), &PrintLocationList, "PrintLocationList");
    default:
      return print(shownText(u"Item List"_s), &PrintItemList, "PrintItemList");
  }
}

/// What some system takes for something else becomes a blank; and no longer than any file system takes it.
QString printFileName(const QString& report) {
  constexpr qsizetype kLongestTitle = 60;
  const QString title = shortened(g_Project->Title, kLongestTitle);
  const QString kind = translated(report);
  QString name = title.isEmpty() ? kind : title + u" - "_s + kind;
  for (QChar& letter : name) {
    if (u"\\/:*?\"<>|"_s.contains(letter) || letter < u' ') {
      letter = u' ';
    }
  }
  return name.simplified();
}
