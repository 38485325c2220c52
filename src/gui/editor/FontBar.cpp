#include "gui/editor/FontBar.h"

#include "core/infra/Numbers.h"
#include "gui/editor/EditorCombo.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/RichTextBox.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";

/// A typed size is taken from the lower limit on and below the upper one.
constexpr double kSmallestSize = 5;
constexpr double kTooLarge = 32;

}  // namespace

FontBar::FontBar(RichTextBox& text, QWidget* parent)
    : QWidget(parent),
      text_(text),
      cmbFont(makeCombo("cmbFont", u"Font"_s)),
      cmbFontSize(makeCombo("cmbFontSize", u"Font size"_s)),
      cmdBold(makeBarButton(u"cmdBold"_s, textIcon("bold"), u"Bold (Ctrl+B)"_s, this)),
      cmdItalic(makeBarButton(u"cmdItalic"_s, textIcon("italic"), u"Italic (Ctrl+I)"_s, this)),
      cmdUnderline(makeBarButton(u"cmdUnderline"_s, textIcon("underline"), u"Underline (Ctrl+U)"_s, this)) {
  cmbFont->setMinimumContentsLength(18);
  cmbFontSize->setMinimumContentsLength(4);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QWidget* const control :
       std::initializer_list<QWidget*>{cmbFont, cmbFontSize, cmdBold, cmdItalic, cmdUnderline}) {
    layout->addWidget(control);
  }
  layout->addStretch();
  connectCombos();
  connectButtons();
}

QComboBox* FontBar::makeCombo(const char* name, const QString& tip) {
  auto* combo = new EditorCombo(QString::fromLatin1(name), tip, this);
  combo->setToolTip(tip);
  combo->setEditable(true);
  combo->lineEdit()->setAccessibleName(tip);
  combo->setInsertPolicy(QComboBox::NoInsert);
  return combo;
}

void FontBar::connectCombos() {
  // A choice from the list applies at once; typed text when it is finished, since "1" on the way to "12" is no size.
  const auto onFinished = [this](const char* handler, const QComboBox* combo, void (FontBar::*apply)()) {
    QLineEdit* const edit = combo->lineEdit();
    connect(edit, &QLineEdit::editingFinished, this, guarded(handler, kModule, [=, this] {
              if (edit->isModified()) {
                edit->setModified(false);
                (this->*apply)();
              }
            }));
  };
  onFinished("cmbFont_Change", cmbFont, &FontBar::applyFont);
  onFinished("cmbFontSize_Change", cmbFontSize, &FontBar::applyTypedSize);
  connect(cmbFont, &QComboBox::textActivated, this, guarded("cmbFont_Click", kModule, this, &FontBar::applyFont));
  connect(cmbFontSize, &QComboBox::textActivated, this,
          guarded("cmbFontSize_Click", kModule, [this](const QString& size) { applySize(size.toDouble()); }));
  // What is typed next belongs to the scene.
  for (QComboBox* const box : {cmbFont, cmbFontSize}) {
    connect(box, &QComboBox::textActivated, &text_, [this] { text_.setFocus(); });
  }
}

void FontBar::connectButtons() {
  connect(cmdBold, &QToolButton::clicked, this,
          guarded("cmdBold_Click", kModule, [this] { text_.setSelBold(!text_.SelBold()); }));
  connect(cmdItalic, &QToolButton::clicked, this,
          guarded("cmdItalic_Click", kModule, [this] { text_.setSelItalic(!text_.SelItalic()); }));
  connect(cmdUnderline, &QToolButton::clicked, this,
          guarded("cmdUnderline_Click", kModule, [this] { text_.setSelUnderline(!text_.SelUnderline()); }));
  for (QToolButton* const button : {cmdBold, cmdItalic, cmdUnderline}) {
    connect(button, &QToolButton::clicked, &text_, [this] { text_.setFocus(); });
  }
}

// An entry of the list that is current while another text is shown would be chosen when the box is left.
void FontBar::showChoice(const QString& font, const QString& size) {
  for (const auto& [box, text] : {std::pair{cmbFont, font}, {cmbFontSize, size}}) {
    box->setCurrentIndex(box->findText(text));
    box->setEditText(text);
  }
}

void FontBar::fillLists() {
  const QString font = cmbFont->currentText();
  const QString size = cmbFontSize->currentText();
  cmbFont->addItems(QFontDatabase::families());
  for (const int points : {8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 28, 36, 48, 72}) {
    cmbFontSize->addItem(QString::number(points));
  }
  showChoice(font, size);
}

void FontBar::applyFont() {
  if (!cmbFont->currentText().trimmed().isEmpty()) {
    text_.setSelFontName(cmbFont->currentText().trimmed());
  }
}

void FontBar::applyTypedSize() {
  const double points = Numbers::Val(cmbFontSize->currentText());
  if (points < kSmallestSize || points >= kTooLarge) {
    showChoice(cmbFont->currentText(), QString::number(text_.SelFontSize()));
    return;
  }
  applySize(points);
}

void FontBar::applySize(double points) {
  if (points > 0) {
    text_.setSelFontSize(points);
  }
}
