#include "gui/toolkit/fSHAREDGetDate.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedGetDate.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowTitle.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using Box = DateEntry::Box;
using Key = DateEntry::Key;
using Outcome = DateEntry::Outcome;

namespace {

constexpr auto kModule = "fSHAREDGetDate";

QLineEdit* makeField(const QString& name, const QString& spokenName, Box box, QWidget* parent) {
  QLineEdit* field = makeLineEdit(name, spokenName, parent);
  field->setToolTip(spokenName);
  field->setMaxLength(DateEntry::maxLength(box));
  field->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), field));
  field->setAlignment(Qt::AlignCenter);
  const int digits = field->fontMetrics().horizontalAdvance(u'0') * (DateEntry::maxLength(box) + 2);
  field->setFixedWidth(digits + field->sizeHint().height() / 2);
  return field;
}

/// The focus that another window or a menu takes comes back by itself.
bool isLeaving(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

/// What a key stands for anywhere in the window; nothing for the others.
std::optional<Key> commandOf(int key) {
  switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_F9:
      return Key::Cancel;
    case Qt::Key_F10:
      return Key::Accept;
    default:
      return {};
  }
}

std::optional<Key> fieldKeyOf(const QKeyEvent& event) {
  constexpr auto kCommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
    return Key::Enter;
  }
  if (event.key() == Qt::Key_Backspace) {
    return Key::Backspace;
  }
  const bool types = !event.text().isEmpty() && event.text().at(0).isPrint() && !(event.modifiers() & kCommandKeys);
  return types ? std::optional(Key::Character) : commandOf(event.key());
}

}  // namespace

fSHAREDGetDate::fSHAREDGetDate(DateEntry& entry, const QString& caption, QWidget* parent)
    : QDialog(parent), entry_(entry) {
  setObjectName(u"fSHAREDGetDate"_s);
  setWindowTitle(literalTitle(translated(caption)));
  createControls();
  buildLayout();
  connectSignals();
  showTexts();
  focusBox(DateEntry::First);
}

void fSHAREDGetDate::install() {
  cSharedGetDate::installWindow(&fSHAREDGetDate::run);
}

void fSHAREDGetDate::run(DateEntry& entry, const QString& caption) {
  fSHAREDGetDate window(entry, caption, QApplication::activeWindow());
  window.exec();
}

void fSHAREDGetDate::createControls() {
  const bool monthFirst = entry_.orderString().startsWith(u'M');
  boxes_ = {makeField(u"txtField(0)"_s, monthFirst ? u"Month"_s : u"Day"_s, DateEntry::First, this),
            makeField(u"txtField(1)"_s, monthFirst ? u"Day"_s : u"Month"_s, DateEntry::Second, this),
            makeField(u"txtYear"_s, u"Year"_s, DateEntry::Year, this)};
  lblSlash = {makeLabel(u"lblSlash(0)"_s, entry_.separator(), this),
              makeLabel(u"lblSlash(1)"_s, entry_.separator(), this)};
  lblFormatString = makeLabel(u"lblFormatString"_s, entry_.orderString(), this);
  lblDate = makeLabel(u"lblDate"_s, {}, this);
  lblDate->hide();
  cmdAccept = makeButton(u"cmdAccept"_s, u"OK"_s, this);
  cmdAccept->setDefault(true);
  cmdAbort = makeButton(u"cmdAbort"_s, u"Cancel"_s, this);
}

void fSHAREDGetDate::buildLayout() {
  auto* fields = new QHBoxLayout;
  fields->addStretch();
  fields->addWidget(boxes_[DateEntry::First]);
  fields->addWidget(lblSlash[0]);
  fields->addWidget(boxes_[DateEntry::Second]);
  fields->addWidget(lblSlash[1]);
  fields->addWidget(boxes_[DateEntry::Year]);
  fields->addSpacing(fontMetrics().averageCharWidth() * 2);
  fields->addWidget(lblFormatString);
  fields->addStretch();

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdAccept);
  buttons->addWidget(cmdAbort);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addStretch();
  layout->addLayout(buttons);
  const int captionWidth = fontMetrics().horizontalAdvance(windowTitle());
  setMinimumWidth(captionWidth + fontMetrics().averageCharWidth() * 16);
}

void fSHAREDGetDate::connectSignals() {
  for (const Box box : {DateEntry::First, DateEntry::Second, DateEntry::Year}) {
    boxes_[box]->installEventFilter(this);
    connect(boxes_[box], &QLineEdit::textChanged, this,
            guarded("txtBox_Change", kModule, [this, box](const QString& text) { entry_.setText(box, text); }));
  }
  connect(cmdAccept, &QPushButton::clicked, this, guarded("cmdAccept_Click", kModule, [this] { press(Key::Accept); }));
  connect(cmdAbort, &QPushButton::clicked, this, guarded("cmdAbort_Click", kModule, [this] { press(Key::Cancel); }));
}

bool fSHAREDGetDate::eventFilter(QObject* watched, QEvent* event) {
  const auto found = std::find(boxes_.begin(), boxes_.end(), watched);
  if (found == boxes_.end()) {
    return QDialog::eventFilter(watched, event);
  }
  const Box box = static_cast<Box>(found - boxes_.begin());
  if (event->type() == QEvent::KeyPress) {
    return handleKey(*static_cast<QKeyEvent*>(event), box);
  }
  if (event->type() == QEvent::FocusIn) {
    entry_.setFocus(box);
  }
  if (event->type() == QEvent::FocusOut && isLeaving(static_cast<QFocusEvent*>(event)->reason())) {
    leaveBox(box);
  }
  return QDialog::eventFilter(watched, event);
}

void fSHAREDGetDate::keyPressEvent(QKeyEvent* event) {
  const std::optional<Key> command = commandOf(event->key());
  if (command) {
    press(*command);
    return;
  }
  QDialog::keyPressEvent(event);
}

bool fSHAREDGetDate::handleKey(const QKeyEvent& event, Box box) {
  const std::optional<Key> key = fieldKeyOf(event);
  if (!key) {
    return false;
  }
  entry_.setFocus(box);
  const Outcome outcome = entry_.press(*key, event.text().isEmpty() ? QChar() : event.text().at(0));
  if (outcome == Outcome::PassOn) {
    return false;
  }
  settle(outcome);
  return true;
}

void fSHAREDGetDate::press(Key key, QChar character) {
  settle(entry_.press(key, character));
}

/// Shows what the entry has become; the focus moves only when the entry moved it.
void fSHAREDGetDate::settle(Outcome outcome) {
  closing_ = outcome == Outcome::Accepted || outcome == Outcome::Cancelled;
  showTexts();
  if (closing_) {
    done(outcome == Outcome::Accepted ? Accepted : Rejected);
    return;
  }
  const QString message = entry_.takeMessage();
  if (!message.isEmpty()) {
    toolkit().MsgBox(message);
  }
  focusBox(entry_.focus());
}

/// The window's own close control cancels too.
void fSHAREDGetDate::reject() {
  if (closing_) {
    QDialog::reject();
    return;
  }
  press(Key::Cancel);
}

/// The focus is given back once the change that is under way is through.
void fSHAREDGetDate::leaveBox(Box box) {
  if (closing_) {
    return;
  }
  const bool mayLeave = entry_.leave(box);
  showTexts();
  if (!mayLeave) {
    QTimer::singleShot(0, this, [this, box] { focusBox(box); });
  }
}

void fSHAREDGetDate::showTexts() {
  for (const Box box : {DateEntry::First, DateEntry::Second, DateEntry::Year}) {
    if (boxes_[box]->text() != entry_.text(box)) {
      boxes_[box]->setText(entry_.text(box));
    }
  }
  lblDate->setText(entry_.joined());
}

void fSHAREDGetDate::focusBox(Box box) {
  boxes_[box]->setFocus(Qt::OtherFocusReason);
  boxes_[box]->selectAll();
}
