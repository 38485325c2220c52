#include "gui/editor/EditorCombo.h"

#include "gui/toolkit/PlainToolTip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>
#include <QWheelEvent>

namespace {

bool movesTheChoice(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown ||
         key == Qt::Key_Home || key == Qt::Key_End;
}

}  // namespace

EditorCombo::EditorCombo(const QString& name, const QString& spokenName, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setAccessibleName(spokenName);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

// A list is made when it is first seen, or a screen reader first asks: the window has many, and most stay closed.
void EditorCombo::childEvent(QChildEvent* event) {
  QComboBox::childEvent(event);
  if (event->polished() && event->child()->inherits("QComboBoxPrivateContainer")) {
    view()->setAccessibleName(accessibleName());
  }
}

void EditorCombo::selectIndex(int index) {
  const int wanted = index == -1 ? 0 : index;
  setCurrentIndex(wanted < count() ? wanted : -1);
}

void EditorCombo::renew(const QStringList& entries) {
  const int chosen = currentIndex();
  clear();
  addItems(entries);
  setCurrentIndex(chosen);
}

QString EditorCombo::shownText() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  constexpr int frame = 4;
  return fontMetrics().elidedText(option.currentText, Qt::ElideRight, room.width() - frame);
}

bool EditorCombo::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && !isEditable() && shownText() != currentText()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(currentText()), this);
    return true;
  }
  return QComboBox::event(event);
}

void EditorCombo::paintEvent(QPaintEvent* event) {
  if (isEditable() || currentIndex() < 0) {
    QComboBox::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  option.currentText = shownText();
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void EditorCombo::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void NavigationCombo::showPopup() {
  Q_EMIT opening();
  // Titles are read whole where the window has the room.
  const int widest = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(qMin(widest, window()->width() / 2));
  QComboBox::showPopup();
}

void NavigationCombo::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const bool isLetter = !typed.isEmpty() && typed.front().isPrint() && !typed.front().isSpace() &&
                        (event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
  if (!isLetter && !movesTheChoice(event->key())) {
    EditorCombo::keyPressEvent(event);
    return;
  }
  showPopup();
  if (isLetter) {
    view()->keyboardSearch(typed);
  }
}
