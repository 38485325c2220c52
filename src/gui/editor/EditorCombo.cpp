#include "gui/editor/EditorCombo.h"

#include <QAbstractItemView>
#include <QKeyEvent>
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

// A list is made when it is first seen: the window has many, and most stay closed.
void EditorCombo::showPopup() {
  view()->setAccessibleName(accessibleName());
  QComboBox::showPopup();
}

void EditorCombo::selectIndex(int index) {
  const int wanted = index == -1 ? 0 : index;
  setCurrentIndex(wanted < count() ? wanted : -1);
}

void EditorCombo::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void NavigationCombo::showPopup() {
  Q_EMIT opening();
  EditorCombo::showPopup();
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
