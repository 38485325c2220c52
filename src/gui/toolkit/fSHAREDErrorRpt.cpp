#include "gui/toolkit/fSHAREDErrorRpt.h"

#include "core/infra/CodePage.h"
#include "core/infra/HelpFile.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

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

constexpr int kTextWidthInLetters = 80;
const QString kReportName = u"FullLog.txt"_s;

QPlainTextEdit* makeText(const QString& name, const QString& accessibleName, int lines, QWidget* parent) {
  auto* text = new QPlainTextEdit(parent);
  text->setObjectName(name);
  text->setAccessibleName(accessibleName);
  text->setTabChangesFocus(true);
  const QFontMetrics metrics = text->fontMetrics();
  text->setMinimumHeight(metrics.lineSpacing() * lines + 2 * text->frameWidth() + metrics.lineSpacing() / 2);
  // The pane is as high as its lines ask for, and grows with the window.
  text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  text->setMinimumWidth(metrics.averageCharWidth() * kTextWidthInLetters);
  return text;
}

QPlainTextEdit* makeReadOnlyText(const QString& name, const QString& accessibleName, int lines, QWidget* parent) {
  QPlainTextEdit* text = makeText(name, accessibleName, lines, parent);
  text->setReadOnly(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return text;
}

QPushButton* makeButton(const QString& name, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  button->setObjectName(name);
  button->setAccessibleName(caption);
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
  cmdExit_->setDefault(true);
  cmdExit_->setFocus();
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
  lblError_ = new QLabel(u"An error has ocurred:"_s, this);
  lblError_->setObjectName(u"lblError"_s);
  txtError_ = makeReadOnlyText(u"txtError"_s, u"Error"_s, 3, this);
  txtError_->setPlainText(report_.error);
  lblError_->setBuddy(txtError_);

  txtUserMessage_ = makeText(u"txtUserMessage"_s, u"Your own comments"_s, 4, this);
  fraUserMessage_ = makeHiddenFrame(u"fraUserMessage"_s, u"Enter your own comments here"_s, txtUserMessage_, this);
  txtLog_ = makeReadOnlyText(u"txtLog"_s, u"Log file"_s, 8, this);
  txtLog_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  txtLog_->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtLog_->setPlainText(report_.log);
  fraLog_ = makeHiddenFrame(u"fraLog"_s, u"Log File"_s, txtLog_, this);

  lblNotice_ = new QLabel(this);
  lblNotice_->setObjectName(u"lblNotice"_s);
  lblNotice_->setWordWrap(true);
  lblNotice_->hide();

  cmdShowComments_ = makeButton(u"cmdShowComments"_s, u"Enter Comments"_s, this);
  cmdViewLog_ = makeButton(u"cmdViewLog"_s, u"View Log File"_s, this);
  cmdViewReport_ = makeButton(u"cmdViewReport"_s, u"View Error Report"_s, this);
  cmdViewReport_->setToolTip(u"If 'Submit Error' doesn't work, click here"_s);
  cmdEmail_ = makeButton(u"cmdEmail"_s, u"Submit Error Report"_s, this);
  cmdHelp_ = makeButton(u"cmdHelp"_s, u"Help"_s, this);
  cmdExit_ = makeButton(u"cmdExit"_s, u"Exit"_s, this);
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
  for (QPushButton* button : {cmdShowComments_, cmdViewLog_, cmdViewReport_, cmdEmail_, cmdHelp_, cmdExit_}) {
    buttons->addWidget(button);
  }

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(head);
  layout->addWidget(txtError_, 1);
  layout->addWidget(fraUserMessage_, 1);
  layout->addWidget(fraLog_, 2);
  layout->addWidget(lblNotice_);
  layout->addLayout(buttons);
}

void fSHAREDErrorRpt::connectSignals() {
  connect(cmdShowComments_, &QPushButton::clicked, this,
          [this] { reveal(fraUserMessage_, cmdShowComments_, txtUserMessage_); });
  connect(cmdViewLog_, &QPushButton::clicked, this, [this] { reveal(fraLog_, cmdViewLog_, txtLog_); });
  connect(txtUserMessage_, &QPlainTextEdit::textChanged, this, [this] { report_.commented = true; });
  connect(cmdViewReport_, &QPushButton::clicked, this, &fSHAREDErrorRpt::viewReport);
  connect(cmdEmail_, &QPushButton::clicked, this, &fSHAREDErrorRpt::submit);
  connect(cmdHelp_, &QPushButton::clicked, this, [this] { HelpFile::open(helpTopic_); });
  connect(cmdExit_, &QPushButton::clicked, this, &QDialog::accept);
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
  report_.comment = txtUserMessage_->toPlainText().replace(u'\n', u"\r\n"_s);
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
    lblNotice_->setText(written ? u"The report was written to %1."_s.arg(path) : u"The report could not be written."_s);
    lblNotice_->show();
  }
}

void fSHAREDErrorRpt::tellByHand() {
  lblNotice_->setText(
      u"No mail program could be started. Click '%1' to send the report by hand."_s.arg(cmdViewReport_->text()));
  lblNotice_->show();
  cmdViewReport_->setFocus();
}
