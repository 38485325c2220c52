#include "gui/toolkit/QtToolkit.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/InputShield.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/QtTexts.h"
#include "gui/toolkit/WindowTitle.h"
#include "gui/toolkit/cSharedProgress.h"
#include "gui/toolkit/fSHAREDErrorRpt.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// The room beside a title, in lines.
constexpr int kTitleButtons = 8;

struct BoxKind {
  QMessageBox::Icon picture;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton onEnter;
  QMessageBox::StandardButton onEscape;
};

BoxKind kindOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::YesNo:
      return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    case Buttons::NoUnlessYes:
      return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No};
    case Buttons::YesNoOrBack:
      return {QMessageBox::Question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
              QMessageBox::Cancel};
    case Buttons::RetryCancel:
      return {QMessageBox::Warning, QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Retry, QMessageBox::Cancel};
    case Buttons::Ok:
      break;
  }
  return {QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

Answer answerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Retry:
      return Answer::Retry;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      return Answer::Ok;
  }
}

/// "*.qn3;*.qn4" as the file dialog wants it, with all files behind.
QStringList nameFilters(const QString& patterns) {
  const QStringList wanted = patterns.split(u';', Qt::SkipEmptyParts);
  QStringList filters;
  if (!wanted.isEmpty()) {
    filters.append(translated(u"Files (%1)"_s).arg(wanted.join(u' ')));
  }
  filters.append(translated(u"All files"_s) + u" (*)"_s);
  return filters;
}

/// The extension of the first pattern in small letters, without its dot; empty when that is no plain one.
QString defaultSuffix(const QString& patterns) {
  const QString first = patterns.section(u';', 0, 0).trimmed();
  const QString suffix = first.startsWith(u"*."_s) ? first.mid(2).toLower() : QString();
  return suffix.contains(u'*') || suffix.contains(u'?') ? QString() : suffix;
}

using FileDialog = OverActiveWindow<QFileDialog>;

void prepare(const FileDialog& dialog, const FileQuestion& question) {
  dialog->setWindowTitle(literalTitle(translated(question.title)));
  dialog->setNameFilters(nameFilters(question.filter));
  // Without a folder that is there the dialog would begin where the program was started.
  const bool known = !question.folder.isEmpty() && QFileInfo(question.folder).isDir();
  dialog->setDirectory(known ? question.folder : Paths::documentsFolder());
  if (!question.defaultName.isEmpty()) {
    dialog->selectFile(question.defaultName);
  }
}

/// A list that would lead out of the screen scrolls: the buttons stay in reach.
void letScroll(QMessageBox& box) {
  auto* const label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  const int most = box.screen()->availableGeometry().height() * 2 / 3;
  if (label == nullptr || grid == nullptr || label->sizeHint().height() <= most) {
    return;
  }
  auto* const area = new QScrollArea(&box);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setMinimumSize(label->sizeHint().width() + area->verticalScrollBar()->sizeHint().width(), most);
  delete grid->replaceWidget(label, area);
  area->setWidget(label);
}

void prepare(const OverActiveWindow<QMessageBox>& box, QMessageBox::Icon picture, const QString& text) {
  box->setIcon(picture);
  box->setWindowTitle(u"Quillane"_s);
  // Titles and paths stand in these texts as they are, "<" and "&" too.
  box->setTextFormat(Qt::PlainText);
  // Whoever puts it together of lines has translated those that are ours: others may be titles, whatever they say.
  box->setText(translated(text));
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  letScroll(*box.operator->());
}

/// A box takes a letter for the button that is marked with it: not while somebody types as it comes up. Alt brings it
/// back.
class LettersIgnored : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      const bool isTyped = !(key.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier));
      return isTyped && !key.text().isEmpty() && key.text().front().isLetter();
    }
    return QObject::eventFilter(watched, event);
  }
};

/// Marks the first letter of a word that isn't taken yet.
QString withMnemonic(const QString& caption, QString& taken) {
  QString text = QString(caption).replace(u'&', u"&&"_s);
  for (qsizetype i = 0; i < caption.size(); ++i) {
    const bool beginsWord = i == 0 || caption[i - 1] == u' ';
    if (beginsWord && caption[i].isLetter() && !taken.contains(caption[i].toLower()) && text == caption) {
      taken.append(caption[i].toLower());
      return text.insert(i, u'&');
    }
  }
  return text;
}

QString chosen(const FileDialog& dialog) {
  return dialog.accepted() ? Paths::native(dialog->selectedFiles().value(0)) : QString();
}

/// The text without a "%" that no two hexadecimal digits follow: a report's body is cut wherever its length ends, and
/// one broken escape would have every other one escaped again.
QString withoutBrokenEscapes(QString address) {
  static const QRegularExpression broken(u"%(?![0-9A-Fa-f]{2})[0-9A-Fa-f]?"_s);
  return address.remove(broken);
}

QUrl addressOf(const QString& pathOrAddress) {
  const bool isMail = pathOrAddress.startsWith(u"mailto:"_s);
  const QUrl address(isMail ? withoutBrokenEscapes(pathOrAddress) : pathOrAddress, QUrl::TolerantMode);
  // A scheme of one letter is the drive of a path.
  return address.scheme().size() > 1 ? address : QUrl::fromLocalFile(QFileInfo(pathOrAddress).absoluteFilePath());
}

}  // namespace

/// A question that comes up amid long work is answered with the ordinary pointer.
class QtToolkit::PointerPause {
 public:
  explicit PointerPause(QtToolkit& owner) : owner_(owner) { owner_.showPointer(Pointer::Normal); }
  ~PointerPause() { owner_.showPointer(owner_.pointer_); }
  PointerPause(const PointerPause&) = delete;
  PointerPause& operator=(const PointerPause&) = delete;

 private:
  QtToolkit& owner_;
};

QtToolkit::QtToolkit() {
  translateQtTexts();
}

Answer QtToolkit::MsgBox(const QString& text, Buttons buttons) {
  const PointerPause pause(*this);
  const BoxKind kind = kindOf(buttons);
  LettersIgnored typing;
  const OverActiveWindow<QMessageBox> box;
  prepare(box, kind.picture, text);
  box->setStandardButtons(kind.buttons);
  box->setDefaultButton(kind.onEnter);
  box->setEscapeButton(kind.onEscape);
  if (buttons == Buttons::NoUnlessYes) {
    box->installEventFilter(&typing);
  }
  box->button(kind.onEnter)->setFocus();
  const int button = box->exec();
  return answerOf(button == 0 ? kind.onEscape : button);
}

int QtToolkit::Choose(const ChoiceQuestion& question) {
  const PointerPause pause(*this);
  const OverActiveWindow<QMessageBox> box;
  prepare(box, QMessageBox::Question, question.text);
  QList<QAbstractButton*> buttons;
  // Cancel has the Escape key.
  QString taken;
  for (const QString& choice : question.choices) {
    // In this role buttons stand in the order in which they are added.
    buttons.append(box->addButton(withMnemonic(translated(choice), taken), QMessageBox::ActionRole));
  }
  box->setEscapeButton(box->addButton(QMessageBox::Cancel));
  auto* const first = qobject_cast<QPushButton*>(buttons.value(question.byDefault));
  box->setDefaultButton(first);
  if (first != nullptr) {
    first->setFocus();
  }
  box->exec();
  // The box may have gone with its window.
  return box.isThere() ? static_cast<int>(buttons.indexOf(box->clickedButton())) : ChoiceQuestion::kNone;
}

QString QtToolkit::InputBox(const QString& prompt, const QString& title, const QString& text) {
  const PointerPause pause(*this);
  const OverActiveWindow<QInputDialog> dialog;
  dialog->setWindowTitle(title.isEmpty() ? u"Quillane"_s : literalTitle(translated(title)));
  dialog->setLabelText(translated(prompt));
  // A frame cuts the title of a window that is narrower, and has buttons beside it.
  const QFontMetrics letters = dialog->fontMetrics();
  const int widthOfTitle = letters.horizontalAdvance(dialog->windowTitle()) + letters.height() * kTitleButtons;
  for (QLabel* const label : dialog->findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
    label->setMinimumWidth(widthOfTitle);
  }
  dialog->setTextValue(text);
  return dialog.accepted() ? dialog->textValue() : QString();
}

QString QtToolkit::OpenFileDialog(const FileQuestion& question) {
  const PointerPause pause(*this);
  const FileDialog dialog;
  dialog->setAcceptMode(QFileDialog::AcceptOpen);
  dialog->setFileMode(QFileDialog::ExistingFile);
  prepare(dialog, question);
  return chosen(dialog);
}

QStringList QtToolkit::GetFiles(const FileQuestion& question) {
  const PointerPause pause(*this);
  const FileDialog dialog;
  dialog->setAcceptMode(QFileDialog::AcceptOpen);
  dialog->setFileMode(QFileDialog::ExistingFiles);
  prepare(dialog, question);
  QStringList files = dialog.accepted() ? dialog->selectedFiles() : QStringList();
  for (QString& file : files) {
    file = Paths::native(file);
  }
  return files;
}

QString QtToolkit::SaveFileDialog(const FileQuestion& question) {
  const PointerPause pause(*this);
  const FileDialog dialog;
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setDefaultSuffix(defaultSuffix(question.filter));
  prepare(dialog, question);
  return chosen(dialog);
}

QString QtToolkit::PickFolder(const QString& title, const QString& folder) {
  const PointerPause pause(*this);
  const FileDialog dialog;
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  prepare(dialog, {title, {}, {}, folder});
  return chosen(dialog);
}

std::optional<quint32> QtToolkit::PickColour(const QString& title, quint32 initial) {
  const PointerPause pause(*this);
  const OverActiveWindow<QColorDialog> dialog;
  dialog->setWindowTitle(literalTitle(translated(title)));
  dialog->setCurrentColor(Colours::toQt(initial, QApplication::palette()));
  return dialog.accepted() ? std::optional(Colours::fromQt(dialog->selectedColor())) : std::nullopt;
}

void QtToolkit::ShowErrorReport(const QString& text, const QString& helpTopic) {
  const PointerPause pause(*this);
  fSHAREDErrorRpt::run(text, helpTopic);
}

void QtToolkit::setPointer(Pointer pointer) {
  pointer_ = pointer;
  showPointer(pointer);
}

void QtToolkit::showPointer(Pointer pointer) {
  // One entry at most on the application's stack, so that a single Normal ends any number of Busy.
  if (overriding_) {
    QGuiApplication::restoreOverrideCursor();
  }
  overriding_ = pointer != Pointer::Normal;
  if (overriding_) {
    QGuiApplication::setOverrideCursor(pointer == Pointer::Busy ? Qt::WaitCursor : Qt::BusyCursor);
  }
}

QString QtToolkit::clipboardText() {
  return QGuiApplication::clipboard()->text();
}

void QtToolkit::setClipboardText(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

bool QtToolkit::openDocument(const QString& pathOrAddress) {
  const QUrl address = addressOf(pathOrAddress);
  if (pathOrAddress.isEmpty() || (address.isLocalFile() && !QFileInfo::exists(address.toLocalFile()))) {
    return false;
  }
  return QDesktopServices::openUrl(address);
}

bool QtToolkit::runProgram(const QString& program, const QStringList& arguments, bool hidden) {
  QProcess process;
  process.setProgram(program);
  process.setArguments(arguments);
  if (hidden) {
    // A script has its files beside it.
    const QFileInfo file(program);
    process.setWorkingDirectory(file.isAbsolute() ? file.path() : QString());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
  }
  return process.startDetached();
}

void QtToolkit::DoEvents() {
  QCoreApplication::processEvents();
}

std::unique_ptr<ProgressWindow> QtToolkit::makeProgressWindow() {
  return std::make_unique<cSharedProgress>();
}

std::unique_ptr<InputHold> QtToolkit::holdInput() {
  return std::make_unique<InputShield>();
}
