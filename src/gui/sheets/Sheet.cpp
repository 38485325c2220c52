#include "gui/sheets/Sheet.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/SelectAllOnFocus.h"
#include "gui/toolkit/WindowSettings.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString goneText(EntityKind kind) {
  switch (kind) {
    case EntityKind::Chapter:
      return shownText(
          u"This chapter isn't in the book any more, so it can't be saved. Please copy its text to keep it."_s);
    case EntityKind::Character:
      return shownText(
          u"This character isn't in the book any more, so it can't be saved. Please copy its text to keep it."_s);
    case EntityKind::Location:
      return shownText(
          u"This location isn't in the book any more, so it can't be saved. Please copy its text to keep it."_s);
    case EntityKind::Item:
      break;
  }
  return shownText(u"This item isn't in the book any more, so it can't be saved. Please copy its text to keep it."_s);
}

/// Turns to the tabs that the control stands on.
void turnTo(const QWidget& control) {
  for (QWidget* parent = control.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
    auto* const tabs = qobject_cast<QTabWidget*>(parent);
    for (int i = 0; tabs != nullptr && i < tabs->count(); ++i) {
      if (tabs->widget(i)->isAncestorOf(&control)) {
        tabs->setCurrentIndex(i);
      }
    }
  }
}

}  // namespace

Sheet::Sheet(const char* name, const QString& caption, SheetSubject subject, QWidget* parent)
    : QDialog(parent), module_(name), subject_(std::move(subject)) {
  setObjectName(QString::fromLatin1(name));
  setWindowTitle(caption);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
}

void Sheet::setFields(QWidget* fields, QSize lettersAndLines) {
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(makeButton(u"cmdOK"_s, u"&OK"_s), QDialogButtonBox::AcceptRole);
  buttons->addButton(makeButton(u"cmdExit"_s, u"&Cancel"_s), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* column = new QVBoxLayout(this);
  column->addWidget(fields, 1);
  column->addWidget(buttons);
  const QSize wanted(fontMetrics().averageCharWidth() * lettersAndLines.width(),
                     fontMetrics().lineSpacing() * lettersAndLines.height());
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(objectName(), *this);
}

void Sheet::setNameField(QLineEdit& field, const QString& complaint) {
  name_ = &field;
  complaint_ = complaint;
  new SelectAllOnFocus(field);
  field.setFocus();
}

void Sheet::bringForward() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void Sheet::complain(const QString& text) {
  const QPointer<Sheet> alive(this);
  toolkit().MsgBox(text);
  if (alive) {
    turnTo(*name_);
    name_->setFocus();
  }
}

bool Sheet::mayAccept() {
  if (name_->text().trimmed().isEmpty()) {
    complain(complaint_);
    return false;
  }
  if (!subject_.isThere()) {
    complain(goneText(subject_.kind));
    return false;
  }
  return true;
}

void Sheet::accept() {
  Guard("cmdOK_Click", module_)([this] {
    if (mayAccept()) {
      QDialog::accept();
    }
  });
}

// Escape, Cancel and the window's own close control.
void Sheet::reject() {
  Guard("cmdExit_Click", module_)([this] {
    if (!isChanged()) {
      QDialog::reject();
      return;
    }
    const QPointer<Sheet> alive(this);
    const Answer answer = toolkit().MsgBox(u"Do you want to save the changes?"_s, Buttons::YesNoOrBack);
    if (alive && answer == Answer::Yes) {
      accept();
    } else if (alive && answer == Answer::No) {
      QDialog::reject();
    }
  });
}

void Sheet::done(int result) {
  storeWindow(objectName(), *this);
  QDialog::done(result);
}
