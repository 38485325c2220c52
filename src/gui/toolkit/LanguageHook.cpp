#include "gui/toolkit/LanguageHook.h"

#include "gui/toolkit/WindowTexts.h"

#include <QAbstractButton>
#include <QActionEvent>
#include <QApplication>
#include <QFontDatabase>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QPointer>

namespace {

/// A tool tip may be the keys alone.
QString keysInLanguage(const QString& text) {
  const QKeySequence keys = text.contains(u'+') ? QKeySequence(text, QKeySequence::PortableText) : QKeySequence();
  return keys.toString(QKeySequence::PortableText) == text ? keys.toString(QKeySequence::NativeText) : text;
}

QString inLanguage(const FormText& text) {
  const QString& english = text.english.isNull() ? text.shown : text.english;
  const QString caption = translatedCaption(english);
  return caption == english ? keysInLanguage(english) : caption;
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
        if (auto* const widget = qobject_cast<QWidget*>(&watched); widget != nullptr && widget->isWindow()) {
          partKeys(*widget);
        }
        [[fallthrough]];
      case QEvent::ToolTip:
      case QEvent::WindowTitleChange:
        if (watched.isWidgetType()) {
          translateTexts(watched, inLanguage);
        }
        break;
      case QEvent::ToolTipChange:
        // A screen reader tells it without a pointer. What isn't up yet is translated with its window.
        if (const auto* const widget = qobject_cast<QWidget*>(&watched); widget != nullptr && widget->isVisible()) {
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

/// All windows as one: none is still in the former language while another is in the next.
class AllWindows : public TranslatableForm {
 public:
  void eachText(const TranslateText& translate) override {
    each([&translate](WindowTexts& texts) { texts.eachText(translate); });
  }
  bool fontExists(const QString& family) const override { return QFontDatabase::hasFamily(family); }
  void setFontFamily(const QString& family) override {
    each([&family](WindowTexts& texts) { texts.setFontFamily(family); });
  }

 private:
  static void each(const std::function<void(WindowTexts&)>& act) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      WindowTexts texts(*window);
      act(texts);
    }
  }
};

// A window hands it on to those that belong to it.
void tellOfChange() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->parentWidget() == nullptr) {
      QEvent change(QEvent::LanguageChange);
      QCoreApplication::sendEvent(window, &change);
    }
  }
}

}  // namespace

bool useLanguage(int index) {
  // What is put there shall not be looked at twice.
  watch(false);
  AllWindows windows;
  if (Lang().LanguageTitle(index) == Lang().CurrentLanguage()) {
    // Loaded before there was a window.
    Lang().TranslateForm(windows);
  } else {
    Lang().Localise(windows, index);
  }
  watch(!Lang().IsEnglish());
  tellOfChange();
  return Lang().IsEnglish() == (index == 0);
}
