#include "gui/editor/FontBar.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSharedLang.h"
#include "gui/editor/FormatCombo.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Icons.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/DefaultFont.h"
#include "gui/views/FontLists.h"

#include <QAction>
#include <QCursor>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";

}  // namespace

FontBar::FontBar(RichTextBox& text, QWidget* parent)
    : QWidget(parent),
      text_(text),
      cmbFont(new FormatCombo(u"cmbFont"_s, u"Font"_s, this)),
      cmbFontSize(new FormatCombo(u"cmbFontSize"_s, u"Font size"_s, this)),
      cmdBold(makeToggle("bold", u"Bold (Ctrl+B)"_s)),
      cmdItalic(makeToggle("italic", u"Italic (Ctrl+I)"_s)),
      cmdUnderline(makeToggle("underline", u"Underline (Ctrl+U)"_s)),
      replaced_(cmbFont->lineEdit()->addAction(textIcon("replaced"), QLineEdit::TrailingPosition)) {
  cmbFont->setMinimumContentsLength(22);
  cmbFontSize->setMinimumContentsLength(5);
  replaced_->setVisible(false);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  for (QWidget* const control :
       std::initializer_list<QWidget*>{cmbFont, cmbFontSize, cmdBold, cmdItalic, cmdUnderline}) {
    layout->addWidget(control);
  }
  layout->addStretch();
  connectCombos();
  connectButton(*cmdBold, "cmdBold_Click", &RichTextBox::toggleSelBold);
  connectButton(*cmdItalic, "cmdItalic_Click", &RichTextBox::toggleSelItalic);
  connectButton(*cmdUnderline, "cmdUnderline_Click", &RichTextBox::toggleSelUnderline);
  following_.setSingleShot(true);
  connect(&following_, &QTimer::timeout, this, guarded("FontBarFollowsText", kModule, this, &FontBar::follow));
}

QToolButton* FontBar::makeToggle(const char* name, const QString& tip) {
  const QString handler = QString::fromLatin1(name);
  return makeBarButton(u"cmd"_s + handler.at(0).toUpper() + handler.sliced(1), textIcon(name), tip, this);
}

void FontBar::connectCombos() {
  connect(cmbFont, &FormatCombo::chosen, this,
          guarded("cmbFont_Change", kModule, [this](const QString& name, bool) { applyFont(name); }));
  connect(cmbFontSize, &FormatCombo::chosen, this,
          guarded("cmbFontSize_Change", kModule, [this](const QString& size, bool typed) {
            if (typed) {
              applySize(size);
            } else {
              setSize(size.toDouble());
            }
          }));
  // What is typed next belongs to the scene.
  for (FormatCombo* const box : {cmbFont, cmbFontSize}) {
    connect(box, &FormatCombo::left, &text_, [this] { text_.setFocus(); });
  }
  connect(replaced_, &QAction::triggered, this,
          [this] { QToolTip::showText(QCursor::pos(), replaced_->toolTip(), cmbFont); });
}

void FontBar::connectButton(QToolButton& button, const char* handler, void (RichTextBox::*toggle)()) {
  connect(&button, &QToolButton::clicked, this, guarded(handler, kModule, [this, toggle] { (text_.*toggle)(); }));
  connect(&button, &QToolButton::clicked, &text_, [this] { text_.setFocus(); });
}

void FontBar::setFollowsText(bool follows) {
  if (follows == follows_) {
    return;
  }
  follows_ = follows;
  for (QToolButton* const button : {cmdBold, cmdItalic, cmdUnderline}) {
    button->setCheckable(follows);
  }
  if (!follows) {
    following_.stop();
    disconnect(&text_, nullptr, &following_, nullptr);
    return;
  }
  const auto wait = [this] { following_.start(0); };
  connect(&text_, &RichTextBox::cursorPositionChanged, &following_, wait);
  connect(&text_, &RichTextBox::selectionChanged, &following_, wait);
  connect(&text_, &RichTextBox::currentCharFormatChanged, &following_, wait);
  connect(&text_, &RichTextBox::Changed, &following_, wait);
  follow();
}

void FontBar::follow() {
  const RichTextBox::CommonFormat format = text_.SelFormat();
  cmbFont->showText(format.fontName.value_or(QString()));
  cmbFontSize->showText(format.fontSize ? QString::number(*format.fontSize) : QString());
  cmdBold->setChecked(format.bold == true);
  cmdItalic->setChecked(format.italic == true);
  cmdUnderline->setChecked(format.underline == true);
  markReplaced();
}

void FontBar::showChoice(const DefaultFont& font) {
  cmbFont->showText(font.name);
  cmbFontSize->showText(font.size());
  markReplaced();
}

void FontBar::choose(const DefaultFont& font) {
  showChoice(font);
  applyFont(font.name);
  applySize(font.size());
}

void FontBar::fillLists() {
  for (const auto& [box, entries] : {std::pair{cmbFont, fontFamilies()}, {cmbFontSize, fontSizes()}}) {
    const QString shown = box->currentText();
    const bool typing = box->isBeingTyped();
    box->addItems(entries);
    if (typing) {
      box->setEditText(shown);
    } else {
      box->setCurrentIndex(-1);
      box->showText(shown);
    }
  }
  markReplaced();
}

/// Nothing is known of the fonts before the list is filled.
void FontBar::markReplaced() {
  const QString name = cmbFont->currentText();
  const bool isMissing = cmbFont->count() > 0 && !name.isEmpty() && cmbFont->findText(name, Qt::MatchFixedString) < 0;
  const QString told = isMissing
                           ? translated(u"%1 isn't installed. %2 is shown in its place."_s).arg(name, standInFor(name))
                           : QString();
  replaced_->setVisible(isMissing);
  replaced_->setToolTip(plainToolTip(told));
  cmbFont->setToolTip(isMissing ? plainToolTip(told) : u"Font"_s);
  cmbFont->lineEdit()->setAccessibleDescription(told);
}

void FontBar::applyFont(const QString& name) {
  if (!name.isEmpty()) {
    text_.setSelFontName(name);
  }
  if (follows_) {
    follow();
  } else {
    markReplaced();
  }
}

/// A size that isn't taken gives way to the one that the text has.
void FontBar::applySize(const QString& typed) {
  const double points = Numbers::Val(typed);
  if (isTypedSizeTaken(points)) {
    setSize(points);
    return;
  }
  const std::optional<double> before = text_.SelFormat().fontSize;
  cmbFontSize->showText(before ? QString::number(*before) : QString());
}

void FontBar::setSize(double points) {
  if (points > 0) {
    text_.setSelFontSize(points);
  }
}
