#include "gui/shell/windows/frmOverview.h"

#include "core/infra/cSharedLang.h"
#include "core/reports/modPrintLists.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Twips.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/PrintRun.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kBlock = u"Overview"_s;
constexpr QSize kLettersAndLines(90, 34);
// What the window is wider and higher than its text, in twips.
constexpr double kBeside = 1000;
constexpr double kAboveAndBelow = 1800;

}  // namespace

frmOverview::frmOverview(QWidget* parent)
    : QDialog(parent),
      txtOverview(makeReadOnlyText(u"txtOverview"_s, u"Overview"_s, this)),
      cmdPrint(makeButton(u"cmdPrint"_s, u"&Print"_s, this)),
      cmdExit(makeButton(u"cmdExit"_s, u"E&xit"_s, this)) {
  setObjectName(u"frmOverview"_s);
  setWindowTitle(u"Project Overview"_s);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  connect(cmdPrint, &QPushButton::clicked, this,
          guarded("cmdPrint_Click", "frmOverview", this, &frmOverview::cmdPrint_Click));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);

  const int side = Twips::toPixels(kBeside / 2);
  const int below = Twips::toPixels(kAboveAndBelow) - side;
  auto* const row = new QWidget;
  row->setMinimumHeight(below);
  auto* const buttons = new QHBoxLayout(row);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->addWidget(cmdPrint);
  buttons->addStretch(1);
  buttons->addWidget(cmdExit);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(side, side, side, 0);
  column->setSpacing(0);
  column->addWidget(txtOverview, 1);
  column->addWidget(row);
  resize(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
         fontMetrics().lineSpacing() * kLettersAndLines.height());
  restoreWindow(kBlock, *this);
}

void frmOverview::setText(const QString& text) {
  txtOverview->setPlainText(text);
}

void frmOverview::cmdPrint_Click() {
  printReport(
      {.key = u"AllStoryFile"_s,
       .prompt = shownText(u"Click PRINT to continue."_s),
       .name = printFileName(shownText(u"Overview"_s)),
       .report = [text = txtOverview->toPlainText()](
                     const ReportJob& job) { return PrintPlainText(job, text, translated(u"Project Overview"_s)); },
       .told = shownText(u"Overview printed"_s),
       .routine = "cmdPrint_Click",
       .module = "frmOverview"});
}

void frmOverview::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
