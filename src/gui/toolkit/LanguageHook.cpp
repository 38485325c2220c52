#include "gui/toolkit/LanguageHook.h"

#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/WindowTexts.h"

#include <QAbstractButton>
#include <QActionEvent>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>

namespace {

QString inLanguage(const FormText& text) {
  return translated(text.english.isNull() ? text.shown : text.english);
}

/// Sees every control before it is laid out, shown, painted and hovered over.
class LanguageHook : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // Putting a text there is heard of too.
    if (!isAtWork_) {
      isAtWork_ = true;
      look(*watched, *event);
      isAtWork_ = false;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static void look(QObject& watched, const QEvent& event) {
    switch (event.type()) {
      case QEvent::Polish:
        if (auto* const widget = qobject_cast<QWidget*>(&watched)) {
          translateWhole(*widget);
        }
        break;
      case QEvent::Show:
      case QEvent::ToolTip:
      case QEvent::WindowTitleChange:
        if (watched.isWidgetType()) {
          translateTexts(watched, inLanguage);
        }
        break;
      case QEvent::Paint:
        if (qobject_cast<QLabel*>(&watched) != nullptr || qobject_cast<QAbstractButton*>(&watched) != nullptr ||
            qobject_cast<QGroupBox*>(&watched) != nullptr) {
          translateTexts(watched, inLanguage);
        }
        break;
      case QEvent::ActionAdded:
      case QEvent::ActionChanged:
        translateTexts(*static_cast<const QActionEvent&>(event).action(), inLanguage);
        break;
      default:
        break;
    }
  }

  // A window in one go: its captions shall not take each other's keys.
  static void translateWhole(QWidget& widget) {
    if (!widget.isWindow()) {
      translateTexts(widget, inLanguage);
      return;
    }
    WindowTexts texts(widget);
    Lang().TranslateForm(texts);
  }

  bool isAtWork_ = false;
};

void watch(bool wanted) {
  static QPointer<LanguageHook> hook;
  if (!wanted) {
    delete hook.data();
  } else if (hook == nullptr) {
    hook = new LanguageHook(qApp);
    qApp->installEventFilter(hook);
  }
}

}  // namespace

bool useLanguage(int index, QWidget& window) {
  // What is put there shall not be looked at twice.
  watch(false);
  WindowTexts own(window);
  Lang().Localise(own, index);
  for (QWidget* const other : QApplication::topLevelWidgets()) {
    if (other != &window) {
      WindowTexts texts(*other);
      Lang().TranslateForm(texts);
    }
  }
  for (const QMenuBar* const bar : window.findChildren<QMenuBar*>()) {
    assignMnemonics(bar->actions());
  }
  watch(!Lang().IsEnglish());
  return Lang().IsEnglish() == (index == 0);
}
