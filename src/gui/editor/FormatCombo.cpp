#include "gui/editor/FormatCombo.h"

#include <QKeyEvent>
#include <QLineEdit>

FormatCombo::FormatCombo(const QString& name, const QString& tip, QWidget* parent) : EditorCombo(name, tip, parent) {
  setToolTip(tip);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  lineEdit()->setAccessibleName(tip);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { typing_ = true; });
  connect(lineEdit(), &QLineEdit::editingFinished, this, &FormatCombo::finish);
  // What is typed may stand in the list as well, and comes this way then.
  connect(this, &QComboBox::textActivated, this, [this](const QString& text) {
    if (typing_) {
      finish();
      return;
    }
    Q_EMIT chosen(text, false);
    Q_EMIT left();
  });
}

// An entry of the list that is current while another text is shown would be chosen when the box is left.
void FormatCombo::showText(const QString& text) {
  if (typing_) {
    return;
  }
  shown_ = text;
  if (currentText() != text) {
    setCurrentIndex(findText(text, Qt::MatchFixedString));
    if (currentIndex() < 0) {
      setEditText(text);
    }
    lineEdit()->setCursorPosition(0);
  }
}

void FormatCombo::finish() {
  if (typing_) {
    typing_ = false;
    Q_EMIT chosen(currentText().trimmed(), true);
  }
}

void FormatCombo::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    typing_ = false;
    showText(shown_);
    Q_EMIT left();
    return;
  }
  EditorCombo::keyPressEvent(event);
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    finish();
    Q_EMIT left();
  }
}
