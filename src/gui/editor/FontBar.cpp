#include "gui/editor/FontBar.h"

#include "core/infra/Numbers.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/RichTextBox.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

/// A typed size is taken from the lower limit on and below the upper one.
constexpr double kSmallestSize = 5;
constexpr double kTooLarge = 32;

/// Stays as it is under the mouse wheel: scrolling past it must not format the text.
class BarCombo : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace

FontBar::FontBar(RichTextBox& text, QWidget* parent)
    : QWidget(parent),
      text_(text),
      cmbFont_(makeCombo("cmbFont", u"Font"_s)),
      cmbFontSize_(makeCombo("cmbFontSize", u"Font size"_s)),
      cmdBold_(makeButton("cmdBold", "bold", u"Bold (Ctrl+B)"_s)),
      cmdItalic_(makeButton("cmdItalic", "italic", u"Italic (Ctrl+I)"_s)),
      cmdUnderline_(makeButton("cmdUnderline", "underline", u"Underline (Ctrl+U)"_s)) {
  cmbFont_->setMinimumContentsLength(18);
  cmbFontSize_->setMinimumContentsLength(4);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QWidget* const control :
       std::initializer_list<QWidget*>{cmbFont_, cmbFontSize_, cmdBold_, cmdItalic_, cmdUnderline_}) {
    layout->addWidget(control);
  }
  layout->addStretch();
  connectCombos();
  connectButtons();
}

QComboBox* FontBar::makeCombo(const char* name, const QString& tip) {
  auto* combo = new BarCombo(this);
  combo->setObjectName(QString::fromLatin1(name));
  combo->setAccessibleName(tip);
  combo->setToolTip(tip);
  combo->setEditable(true);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  return combo;
}

QToolButton* FontBar::makeButton(const char* name, const char* iconKey, const QString& tip) {
  auto* button = new QToolButton(this);
  button->setObjectName(QString::fromLatin1(name));
  button->setIcon(icon(iconKey));
  button->setAccessibleName(tip.section(u' ', 0, 0));
  button->setToolTip(tip);
  button->setAutoRaise(true);
  return button;
}

void FontBar::connectCombos() {
  // A choice from the list applies at once; typed text when it is finished, since "1" on the way to "12" is no size.
  const auto onFinished = [this](const QComboBox* combo, void (FontBar::*apply)()) {
    QLineEdit* const edit = combo->lineEdit();
    connect(edit, &QLineEdit::editingFinished, this, [=, this] {
      if (edit->isModified()) {
        edit->setModified(false);
        (this->*apply)();
      }
    });
  };
  onFinished(cmbFont_, &FontBar::applyFont);
  onFinished(cmbFontSize_, &FontBar::applyTypedSize);
  connect(cmbFont_, &QComboBox::textActivated, this, &FontBar::applyFont);
  connect(cmbFontSize_, &QComboBox::textActivated, this, [this](const QString& size) { applySize(size.toDouble()); });
  // What is typed next belongs to the scene.
  for (QComboBox* const box : {cmbFont_, cmbFontSize_}) {
    connect(box, &QComboBox::textActivated, &text_, [this] { text_.setFocus(); });
  }
}

void FontBar::connectButtons() {
  connect(cmdBold_, &QToolButton::clicked, this, [this] { text_.setSelBold(!text_.SelBold()); });
  connect(cmdItalic_, &QToolButton::clicked, this, [this] { text_.setSelItalic(!text_.SelItalic()); });
  connect(cmdUnderline_, &QToolButton::clicked, this, [this] { text_.setSelUnderline(!text_.SelUnderline()); });
  for (QToolButton* const button : {cmdBold_, cmdItalic_, cmdUnderline_}) {
    connect(button, &QToolButton::clicked, &text_, [this] { text_.setFocus(); });
  }
}

void FontBar::showChoice(const QString& font, const QString& size) {
  cmbFont_->setEditText(font);
  cmbFontSize_->setEditText(size);
}

void FontBar::fillLists() {
  const QString font = cmbFont_->currentText();
  const QString size = cmbFontSize_->currentText();
  cmbFont_->addItems(QFontDatabase::families());
  for (const int points : {8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 28, 36, 48, 72}) {
    cmbFontSize_->addItem(QString::number(points));
  }
  showChoice(font, size);
}

void FontBar::applyFont() {
  if (!cmbFont_->currentText().trimmed().isEmpty()) {
    text_.setSelFontName(cmbFont_->currentText().trimmed());
  }
}

void FontBar::applyTypedSize() {
  const double points = Numbers::Val(cmbFontSize_->currentText());
  if (points < kSmallestSize || points >= kTooLarge) {
    cmbFontSize_->setEditText(QString::number(text_.SelFontSize()));
    return;
  }
  applySize(points);
}

void FontBar::applySize(double points) {
  if (points > 0) {
    text_.setSelFontSize(points);
  }
}
