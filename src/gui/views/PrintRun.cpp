#include "gui/views/PrintRun.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
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

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A book of fewer scenes is laid out before a window about it could be read.
constexpr qint32 kScenesInAMoment = 150;

[[noreturn]] void cancel(const QString& why) {
  throw RuntimeError(kPrintCancelled, why, u"SelectPrinter"_s);
}

/// A print as a long work that can be stopped.
class PrintWork : public PrintProgress {
 public:
  PrintWork() : work_(*g_Project, u"Printing"_s, g_Project->SceneCount() > kScenesInAMoment, LongWork::Stop::Offered) {}

  void step(const QString& what, qint32 number) override {
    work_.setCaption(what, number);
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

bool preview(const PrintOrder& order, const PrintState& state, bool details) {
  PrintDocument document;
  const QtTextMeasure measure;
  const bool isWhole = unlessStopped([&] {
    PrintWork work;
    document = order.report({measure, state, work, order.chapters, details});
  });
  if (!isWhole) {
    return false;
  }
  if (document.pages.empty()) {
    toolkit().MsgBox(u"There is nothing to print."_s);
    return false;
  }
  const OverActiveWindow<frmPrintPreview> form(std::move(document));
  return form.accepted();
}

void tellFailure(const QString& cause) {
  toolkit().MsgBox(Printers().Name() == cSharedPrinter::pdfFile()
                       ? u"The file "_s + Printers().PdfPath + u" could not be written.\n\n"_s + cause
                       : u"The report could not be printed on "_s + Printers().Name() + u".\n\n"_s + cause);
}

void tellDone() {
  if (Printers().Name() == cSharedPrinter::pdfFile()) {
    toolkit().MsgBox(u"The report is in the file "_s + Printers().PdfPath);
  }
}

bool printed(const PrintOrder& order, bool details) {
  const auto target = Printers().open();
  bool anyPages = false;
  const bool isWhole = unlessStopped([&] {
    PrintWork work;
    const PrintDocument document =
        order.report({target->measure(), PrintState::current(), work, order.chapters, details});
    anyPages = !document.pages.empty();
    if (anyPages) {
      target->print(document, work);
    }
  });
  if (isWhole && !anyPages) {
    toolkit().MsgBox(u"There is nothing to print."_s);
  }
  return isWhole && anyPages;
}

}  // namespace

bool SelectPrinter(const PrintOrder& order) {
  const OverActiveWindow<frmPrinterSetup> form;
  form->SuggestName(order.name);
  form->OfferPreview([&order](const PrintState& state, bool details) { return preview(order, state, details); });
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
  Printers().StoreDefaultPrinter();
  bool isDone = false;
  try {
    isDone = printed(order, SelectPrinter(order));
    if (isDone) {
      tellDone();
    }
  } catch (const RuntimeError& error) {
    if (error.number() != kPrintCancelled) {
      Logging().AddDebug(error.description(), u"PrintReport"_s, u"modRoutines"_s);
      tellFailure(error.description());
    }
  }
  Printers().RestoreDefaultPrinter();
  return isDone;
}

bool printScenes(const QList<qint32>& sceneIDs) {
  const ReportLayout report = [sceneIDs](const ReportJob& job) { return PrintScenes(job, sceneIDs); };
  return printReport({u"StoryFile"_s, u"Print scene(s)"_s, printFileName(u"Scenes"_s), report});
}

bool printCast(CastKind kind) {
  const auto print = [](const QString& key, const ReportLayout& report) {
    return printReport({key, u"Click PRINT to continue."_s, printFileName(key), report});
  };
  switch (kind) {
    case CastKind::Character:
      return print(u"Character List"_s, &PrintCharList);
    case CastKind::Location:
      return print(u"Location List"_s, &PrintLocationList);
    default:
      return print(u"Item List"_s, &PrintItemList);
  }
}

/// What some system takes for something else becomes a blank.
QString printFileName(const QString& report) {
  QString name = g_Project->Title.isEmpty() ? report : g_Project->Title + u" - "_s + report;
  for (QChar& letter : name) {
    if (u"\\/:*?\"<>|"_s.contains(letter) || letter < u' ') {
      letter = u' ';
    }
  }
  return name.simplified();
}
