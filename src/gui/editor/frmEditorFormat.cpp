#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "gui/editor/EditorSpelling.h"
#include "gui/editor/FontBar.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/DefaultFont.h"
#include "gui/views/frmPickFont.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QPointer>

using namespace Qt::StringLiterals;

// How the text looks: the font of text that states none, the two colours, and the bar that shows and sets formats.

namespace {

constexpr auto kModule = "frmEditor";
constexpr int kLoadFontsMs = 100;

/// Nothing when the user cancelled or took what was shown already: an automatic colour stays automatic then.
std::optional<quint32> pickedColour(const QString& title, const QColor& shown) {
  const quint32 before = Colours::fromQt(shown);
  const std::optional<quint32> picked = toolkit().PickColour(title, before);
  return picked == before ? std::nullopt : picked;
}

}  // namespace

void frmEditor::connectFormat() {
  TimerLoadFonts.setSingleShot(true);
  TimerLoadFonts.setInterval(kLoadFontsMs);
  connect(&TimerLoadFonts, &QTimer::timeout, this,
          guarded("TimerLoadFonts_Timer", kModule, fontBar_, &FontBar::fillLists));
  QAction* const automatic = findChild<QAction*>(u"mnuAutomaticColours"_s);
  connect(findChild<QMenu*>(u"mnuFormat"_s), &QMenu::aboutToShow, automatic,
          [this, automatic] { automatic->setEnabled(colours_ != EditorColours()); });
}

/// The settings may have been changed in a window that stood in front of this one.
void frmEditor::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    fontBar_->setFollowsText(Numbers::ToBool(Settings().sGet(u"FontBarFollowsText"_s, true)));
  } else if (event->type() == QEvent::LanguageChange) {
    Guard("Form_Localise", kModule)([this] { showInLanguage(); });
  }
}

void frmEditor::applyEditorFont() {
  const DefaultFont settings = DefaultFont::fromSettings();
  QFont font(settings.name);
  font.setPointSizeF(settings.points);
  txtMain->setFont(font);
  fontBar_->showChoice(settings);
}

void frmEditor::mnuSelectFont_Click() {
  const QPointer<frmEditor> alive(this);
  const std::optional<DefaultFont> chosen = frmPickFont::pick();
  if (alive && chosen) {
    applyEditorFont();
    fontBar_->choose(*chosen);
  }
}

void frmEditor::mnuBGColour_Click() {
  const QPointer<frmEditor> alive(this);
  const auto picked = pickedColour(shownText(u"Set background colour"_s), txtMain->palette().color(QPalette::Base));
  if (alive && picked) {
    takeColours({*picked, colours_.EditorFG});
  }
}

void frmEditor::mnuFGColour_Click() {
  const QPointer<frmEditor> alive(this);
  const auto picked = pickedColour(shownText(u"Set font colour"_s), txtMain->palette().color(QPalette::Text));
  if (alive && picked) {
    takeColours({colours_.EditorBG, *picked});
  }
}

/// All editors look alike: one that kept the old colours would put them back into the settings when it is saved.
void frmEditor::takeColours(const EditorColours& colours) {
  colours.toSettings();
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const editor = qobject_cast<frmEditor*>(window)) {
      editor->showColours(colours);
    }
  }
}

void frmEditor::showColours(const EditorColours& colours) {
  const bool recolours = colours.EditorFG != colours_.EditorFG;
  colours_ = colours;
  colours_.applyTo(*txtMain);
  if (recolours) {
    txtMain->colourRanges({{0, txtMain->Text().size(), colours_.textColour()}});
    spelling_->checkSoon();
  }
}
