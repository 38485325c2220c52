#include "gui/toolkit/SelectAllOnFocus.h"

#include "core/text/cSharedText.h"

#include <QFocusEvent>
#include <QLineEdit>

#include <utility>

SelectAllOnFocus::SelectAllOnFocus(QLineEdit& field) : QObject(&field), field_(field) {
  field.installEventFilter(this);
}

bool SelectAllOnFocus::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // The press that brings the keyboard sets the caret behind this.
    clicked_ = reason == Qt::MouseFocusReason;
    if (!clicked_ && reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
      selectAll();
    }
  }
  if (event->type() == QEvent::MouseButtonRelease && std::exchange(clicked_, false) && !field_.hasSelectedText()) {
    selectAll();
  }
  return QObject::eventFilter(watched, event);
}

// Of a text that is longer than the field its beginning is seen.
void SelectAllOnFocus::selectAll() {
  TextTools().HighlightText(field_);
  const int length = static_cast<int>(field_.text().size());
  field_.setSelection(length, -length);
}
