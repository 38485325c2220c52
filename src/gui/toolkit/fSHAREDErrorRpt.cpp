#include "gui/toolkit/fSHAREDErrorRpt.h"

#include "core/infra/CodePage.h"
#include "core/infra/HelpFile.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyle>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "fSHAREDErrorRpt";

constexpr int kTextWidthInLetters = 80;
const QString kReportName = u"FullLog.txt"_s;

/// The text is as high as its lines ask for, and grows with the window.
void giveRoom(QPlainTextEdit& text, int lines) {
  const QFontMetrics metrics = text.fontMetrics();
  text.setMinimumHeight(metrics.lineSpacing() * lines + 2 * text.frameWidth() + metrics.lineSpacing() / 2);
  text.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  text.setMinimumWidth(metrics.averageCharWidth() * kTextWidthInLetters);
}

/// Enter presses the default button alone, wherever the keyboard is.
QPushButton* makePlainButton(const QString& name, const QString& caption, QWidget* parent) {
  QPushButton* button = makeButton(name, caption, parent);
  button->setAutoDefault(false);
  return button;
}

QGroupBox* makeHiddenFrame(const QString& name, const QString& title, QPlainTextEdit* text, QWidget* parent) {
  auto* frame = new QGroupBox(title, parent);
  frame->setObjectName(name);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(text);
  frame->hide();
  return frame;
}

bool& oneIsOpen() {
  static bool open = false;
  return open;
}

/// In a folder of our own. All may write to the folder of temporaries: another's file may stand in the way there, and
/// another's link lead to a file of the writer's.
QString privatePath() {
  QTemporaryDir folder;
  folder.setAutoRemove(false);
  return QDir::toNativeSeparators(folder.filePath(kReportName));
}

}  // namespace

fSHAREDErrorRpt::fSHAREDErrorRpt(ErrorReport report, QString helpTopic, QWidget* parent)
    : QDialog(parent), report_(std::move(report)), helpTopic_(std::move(helpTopic)) {
  setObjectName(u"fSHAREDErrorRpt"_s);
  setWindowTitle(u"Error Reporter"_s);
  createControls();
  buildLayout();
  connectSignals();
  cmdExit->setDefault(true);
  cmdExit->setFocus();
}

void fSHAREDErrorRpt::run(const QString& text, const QString& helpTopic) {
  if (oneIsOpen()) {
    Logging().AddDebug(text, u"ShowErr"_s, u"fSHAREDErrorRpt"_s);
    return;
  }
  oneIsOpen() = true;
  const auto closed = qScopeGuard([] { oneIsOpen() = false; });
  fSHAREDErrorRpt window(ErrorReport::about(text), helpTopic, QApplication::activeWindow());
  window.exec();
}

void fSHAREDErrorRpt::createControls() {
  lblError_ = makeLabel(u"lblError"_s, u"An error has ocurred:"_s, this);
  txtError = makeReadOnlyText(u"txtError"_s, u"Error"_s, this);
  giveRoom(*txtError, 3);
  txtError->setPlainText(translatedLines(report_.error));
  lblError_->setBuddy(txtError);

  txtUserMessage = makeTextEdit(u"txtUserMessage"_s, u"Your own comments"_s, this);
  giveRoom(*txtUserMessage, 4);
  fraUserMessage_ = makeHiddenFrame(u"fraUserMessage"_s, u"Enter your own comments here"_s, txtUserMessage, this);
  txtLog = makeReadOnlyText(u"txtLog"_s, u"Log file"_s, this);
  giveRoom(*txtLog, 8);
  txtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  txtLog->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtLog->setPlainText(report_.log);
  fraLog_ = makeHiddenFrame(u"fraLog"_s, u"Log File"_s, txtLog, this);

  lblNotice_ = makeLabel(u"lblNotice"_s, {}, this);
  lblNotice_->setWordWrap(true);
  lblNotice_->hide();

  cmdShowComments = makePlainButton(u"cmdShowComments"_s, u"Enter Comments"_s, this);
  cmdViewLog = makePlainButton(u"cmdViewLog"_s, u"View Log File"_s, this);
  cmdViewReport = makePlainButton(u"cmdViewReport"_s, u"View Error Report"_s, this);
  cmdViewReport->setToolTip(u"If 'Submit Error' doesn't work, click here"_s);
  cmdEmail = makePlainButton(u"cmdEmail"_s, u"Submit Error Report"_s, this);
  cmdHelp = makePlainButton(u"cmdHelp"_s, u"Help"_s, this);
  cmdHelp->setVisible(HelpFile::isInstalled());
  cmdExit = makePlainButton(u"cmdExit"_s, u"Exit"_s, this);
}

void fSHAREDErrorRpt::buildLayout() {
  auto* picture = new QLabel(this);
  const int size = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
  picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
  picture->setAccessibleName(u"Warning"_s);

  auto* head = new QHBoxLayout;
  head->addWidget(picture);
  head->addWidget(lblError_, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {cmdShowComments, cmdViewLog, cmdViewReport, cmdEmail, cmdHelp, cmdExit}) {
    buttons->addWidget(button);
  }

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(head);
  layout->addWidget(txtError, 1);
  layout->addWidget(fraUserMessage_, 1);
  layout->addWidget(fraLog_, 2);
  layout->addWidget(lblNotice_);
  layout->addLayout(buttons);
}

void fSHAREDErrorRpt::connectSignals() {
  connect(cmdShowComments, &QPushButton::clicked, this, guarded("cmdShowComments_Click", kModule, [this] {
            reveal(fraUserMessage_, cmdShowComments, txtUserMessage);
          }));
  connect(cmdViewLog, &QPushButton::clicked, this,
          guarded("cmdViewLog_Click", kModule, [this] { reveal(fraLog_, cmdViewLog, txtLog); }));
  connect(txtUserMessage, &QPlainTextEdit::textChanged, this,
          guarded("txtUserMessage_Change", kModule, [this] { report_.commented = true; }));
  connect(cmdViewReport, &QPushButton::clicked, this,
          guarded("cmdViewReport_Click", kModule, this, &fSHAREDErrorRpt::viewReport));
  connect(cmdEmail, &QPushButton::clicked, this, guarded("cmdEmail_Click", kModule, this, &fSHAREDErrorRpt::submit));
  connect(cmdHelp, &QPushButton::clicked, this, guarded("cmdHelp_Click", kModule, [this] {
            HelpFile::open(helpTopic_.isEmpty() ? u"when-something-fails"_s : helpTopic_);
          }));
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::accept);
}

void fSHAREDErrorRpt::reject() {
  cancelled_ = true;
  QDialog::reject();
}

/// The focus goes to the text first, since a button that is disabled would hand it on to its neighbour.
void fSHAREDErrorRpt::reveal(QGroupBox* frame, QPushButton* button, QPlainTextEdit* text) {
  frame->show();
  text->setFocus();
  button->setEnabled(false);
  resize(size().expandedTo(sizeHint()));
}

const ErrorReport& fSHAREDErrorRpt::withComment() {
  report_.comment = txtUserMessage->toPlainText().replace(u'\n', u"\r\n"_s);
  return report_;
}

void fSHAREDErrorRpt::submit() {
  if (!toolkit().openDocument(withComment().mailLink())) {
    Logging().AddDebug(u"No mail program could be started"_s, u"cmdEmail_Click"_s, u"fSHAREDErrorRpt"_s);
    tellByHand();
  }
}

void fSHAREDErrorRpt::viewReport() {
  const QByteArray text = CodePage::toMarkedBytes(withComment().plainText());
  QString path = Paths::temporaryFolder() + kReportName;
  bool written = !QFileInfo(path).isSymLink() && Files().WriteTextFile(path, text);
  if (!written) {
    path = privatePath();
    written = Files().WriteTextFile(path, text);
  }
  if (!written || !Files().RunFile(path)) {
    Logging().AddDebug(u"The report could not be shown"_s, u"cmdViewReport_Click"_s, u"fSHAREDErrorRpt"_s);
    lblNotice_->setText(written ? translated(u"The report was written to %1."_s).arg(path)
                                : translated(u"The report could not be written."_s));
    lblNotice_->show();
  }
}

void fSHAREDErrorRpt::tellByHand() {
  lblNotice_->setText(translated(u"No mail program could be started. Click '%1' to send the report by hand."_s)
                          .arg(cmdViewReport->text()));
  lblNotice_->show();
  cmdViewReport->setFocus();
}
