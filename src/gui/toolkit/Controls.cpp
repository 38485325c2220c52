#include "gui/toolkit/Controls.h"

#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/PlainTextBox.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

namespace {

/// Has room for all of its lines, whatever it says and in which language.
class WrappedLabel : public QLabel {
 public:
  WrappedLabel(const QString& text, int letters, QWidget* parent) : QLabel(text, parent), letters_(letters) {
    setWordWrap(true);
  }
  QSize minimumSizeHint() const override {
    const int width = fontMetrics().averageCharWidth() * letters_;
    return {width, heightForWidth(width)};
  }

 private:
  int letters_;
};

QLabel* named(QLabel* label, const QString& name) {
  giveName(*label, name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

void giveName(QWidget& control, const QString& name, const QString& spokenName) {
  control.setObjectName(name);
  control.setAccessibleName(spokenName);
}

void giveTabOrder(std::initializer_list<QWidget*> controls) {
  for (auto next = controls.begin(); next != controls.end() && next + 1 != controls.end(); ++next) {
    QWidget::setTabOrder(*next, *(next + 1));
  }
}

void giveName(QTabWidget& tabs, const QString& name, const QString& spokenName) {
  giveName(static_cast<QWidget&>(tabs), name, spokenName);
  tabs.tabBar()->setAccessibleName(spokenName);
}

QPushButton* makeButton(const QString& name, const QString& caption, QWidget* parent) {
  auto* button = new QPushButton(caption, parent);
  giveName(*button, name, withoutMnemonic(caption));
  return button;
}

QToolButton* makeBarButton(const QString& name, const QIcon& picture, const QString& tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  giveName(*button, name, tip.section(u'(', 0, 0).trimmed());
  button->setIcon(picture);
  button->setToolTip(tip);
  button->setAutoRaise(true);
  return button;
}

QLabel* makeLabel(const QString& name, const QString& text, QWidget* parent) {
  return named(new QLabel(text, parent), name);
}

QLabel* makeWrappedLabel(const QString& name, const QString& text, int letters, QWidget* parent) {
  QLabel* label = named(new WrappedLabel(text, letters, parent), name);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}

QLabel* makeLabelOf(const QString& caption, QWidget& buddy) {
  auto* label = new QLabel(caption);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(&buddy);
  return label;
}

QLineEdit* makeLineEdit(const QString& name, const QString& spokenName, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  giveName(*edit, name, spokenName);
  return edit;
}

QLineEdit* addLineEdit(QFormLayout& form, const QString& name, const QString& caption) {
  QLineEdit* edit = makeLineEdit(name, caption);
  form.addRow(makeLabelOf(caption + u':', *edit), edit);
  return edit;
}

QPlainTextEdit* makeTextEdit(const QString& name, const QString& spokenName, QWidget* parent) {
  auto* text = new PlainTextBox(parent);
  giveName(*text, name, spokenName);
  text->setTabChangesFocus(true);
  return text;
}

QPlainTextEdit* makeReadOnlyText(const QString& name, const QString& spokenName, QWidget* parent) {
  QPlainTextEdit* text = makeTextEdit(name, spokenName, parent);
  makeReadOnly(*text);
  return text;
}
