#include "gui/toolkit/fSHAREDLogViewer.h"

#include "core/infra/CodePage.h"
#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/WindowTitle.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthInLetters = 110;
constexpr int kHeightInLines = 32;

}  // namespace

fSHAREDLogViewer::fSHAREDLogViewer(QWidget* parent) : QDialog(parent) {
  setObjectName(u"fSHAREDLogViewer"_s);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  txtLog = makeReadOnlyText(u"txtLog"_s, u"Log file"_s, this);
  txtLog->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  txtLog->setFrameShape(QFrame::NoFrame);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(txtLog);
  const QFontMetrics metrics = txtLog->fontMetrics();
  resize(metrics.averageCharWidth() * kWidthInLetters, metrics.lineSpacing() * kHeightInLines);
  load();
}

fSHAREDLogViewer* fSHAREDLogViewer::open(QWidget* parent) {
  auto* viewer = new fSHAREDLogViewer(parent);
  viewer->setAttribute(Qt::WA_DeleteOnClose);
  viewer->show();
  return viewer;
}

/// What is still queued is written first, so that the newest events are seen; they stand at the end.
void fSHAREDLogViewer::load() {
  Logging().WriteActionsToLog();
  // That of a further copy of the program has a name of its own.
  const QString current = Logging().CurrentLogFilename();
  const QString path = current.isEmpty() ? Paths::programFolder() + u"log.txt"_s : current;
  QByteArray log;
  Files().LoadTextFile(path, log);
  setWindowTitle(literalTitle(path));
  txtLog->setPlainText(CodePage::fromMarkedBytes(log));
  txtLog->moveCursor(QTextCursor::End);
}
