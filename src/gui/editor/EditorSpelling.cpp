#include "gui/editor/EditorSpelling.h"

#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/spell/CaretWord.h"
#include "core/spell/cSharedSpell.h"
#include "gui/editor/DictionaryInstaller.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/RichTextBox.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";
constexpr int kFirstCheckMs = 1500;

}  // namespace

EditorSpelling::EditorSpelling(RichTextBox& text, TextMarkLayer& marks, const Entries& entries)
    : QObject(&text), text_(text), marks_(marks), entries_(entries), TimerFirstSpellCheck(this), idle_(this) {
  TimerFirstSpellCheck.setObjectName(u"TimerFirstSpellCheck"_s);
  TimerFirstSpellCheck.setSingleShot(true);
  TimerFirstSpellCheck.setInterval(kFirstCheckMs);
  connect(&TimerFirstSpellCheck, &QTimer::timeout, this,
          guarded("TimerFirstSpellCheck_Timer", kModule, [this] { SpellCheckEditor(false); }));
  connect(&idle_, &QTimer::timeout, this, guarded("SpellCheckEditor", kModule, this, &EditorSpelling::loadSome));
  entries_.mnuSpellingOn->setCheckable(true);
  entries_.mnuSpellingOn->setChecked(Numbers::ToBool(Settings().sGet(u"AutoSpell"_s, false)));
  // Another window may have installed a dictionary.
  connect(entries_.menu, &QMenu::aboutToShow, this, &EditorSpelling::RedrawMenu);
  RedrawMenu();
}

EditorSpelling::~EditorSpelling() {
  stop();
}

void EditorSpelling::begin() {
  TimerFirstSpellCheck.start();
}

void EditorSpelling::stop() {
  TimerFirstSpellCheck.stop();
  idle_.stop();
  if (const auto installer = installer_.lock()) {
    installer->Cancel();
  }
}

void EditorSpelling::RedrawMenu() {
  const bool found = Spell().DictionaryFound();
  for (QAction* const entry : {entries_.mnuClear, entries_.mnuSpellingOn, entries_.mnuCheckNow}) {
    entry->setVisible(found);
  }
  entries_.mnuInstallDictionary->setVisible(!found);
  entries_.mnuInstallDictionary->setEnabled(!DictionaryInstaller::isRunning());
  assignMnemonics(entries_.menu->actions());
}

void EditorSpelling::SpellCheckEditor(bool force) {
  if (!force && !entries_.mnuSpellingOn->isChecked()) {
    MarkNames();
  } else if (Spell().LoadSome()) {
    check();
  } else {
    idle_.start();
  }
}

void EditorSpelling::checkSoon() {
  entries_.mnuSpellingOn->isChecked() ? idle_.start() : MarkNames();
}

void EditorSpelling::loadSome() {
  if (Spell().LoadSome()) {
    idle_.stop();
    check();
  }
}

TextMarks EditorSpelling::misspellings() const {
  const QString text = text_.Text();
  return withoutPossessives(Spell().Misspellings(text), KnownNames(), text);
}

// Names go last: they are shown where both are.
void EditorSpelling::check() {
  const TextMarks wrong = misspellings();
  const TextMarkLayer::Together together(marks_);
  if (Spell().Available()) {
    marks_.setMarks(TextMark::Kind::Misspelling, wrong);
  }
  MarkNames();
  Logging().LogEvent(u"Spell check complete"_s);
}

void EditorSpelling::mnuClear_Click() {
  idle_.stop();
  const TextMarkLayer::Together together(marks_);
  marks_.setMarks(TextMark::Kind::Misspelling, {});
  MarkNames();
  text_.setFocus();
}

void EditorSpelling::mnuSpellingOn_Click() {
  Settings().sSet(u"AutoSpell"_s, entries_.mnuSpellingOn->isChecked());
}

// Who asks for it doesn't wait for an idle moment.
void EditorSpelling::mnuCheckNow_Click() {
  const QPointer<EditorSpelling> alive(this);
  const bool available = Spell().DictAvailable();
  if (!alive) {
    return;  // the lists took their time, and the window was closed
  }
  if (available) {
    idle_.stop();
    SpellCheckEditor(true);
  } else if (Spell().DictionaryFound()) {
    idle_.start();  // another check is reading the lists
  } else {
    Spell().ShowInstructions();
    RedrawMenu();
  }
}

bool EditorSpelling::selectMisspelling(std::optional<qsizetype> clicked) {
  const qsizetype place = clicked.value_or(text_.SelStart());
  if (marks_.kindAt(place) != TextMark::Kind::Misspelling) {
    return false;
  }
  const TextMark word = wordAtCaret(text_.Text(), place);
  const bool anySelected = text_.SelLength() > 0;
  const bool isWithin =
      anySelected && text_.SelStart() >= word.start && text_.SelStart() + text_.SelLength() <= word.end();
  if (!isWithin && anySelected && !clicked) {
    return false;
  }
  if (!isWithin) {
    text_.select(word.start, word.length);
  }
  return text_.SelLength() > 0;
}

void EditorSpelling::mnuAddWordToCustom_Click() {
  const QString cause = Spell().AddWordToCustomDict(text_.SelText());
  dropMended();
  SpellCheckEditor(false);
  if (!cause.isEmpty()) {
    toolkit().MsgBox(
        translated(u"The word could not be written to your custom dictionary. It is taken as right until the program "
                   "ends, and is written with the next word that you add."_s) +
        u"\n\n"_s + translated(cause));
  }
}

// What was added is right at once, also where nothing is checked by itself.
void EditorSpelling::dropMended() {
  const TextMarks wrong = misspellings();
  TextMarks left;
  for (const TextMark& mark : marks_.marks()) {
    const auto word = std::partition_point(wrong.begin(), wrong.end(),
                                           [&mark](const TextMark& other) { return other.end() <= mark.start; });
    const bool isWrong = mark.kind == TextMark::Kind::Misspelling && word != wrong.end() && word->start < mark.end();
    if (isWrong) {
      left.push_back(mark);
    }
  }
  marks_.setMarks(TextMark::Kind::Misspelling, left);
}

// From the message loop: the window may go while a file comes, and its menu with it.
void EditorSpelling::mnuInstallDictionary_Click() {
  const Answer answer = toolkit().MsgBox(
      u"This will download the dictionary and unpack it. Are you sure? (Approx 1.4mb)"_s, Buttons::YesNo);
  if (answer == Answer::Yes) {
    QTimer::singleShot(0, this, guarded("mnuInstallDictionary_Click", kModule, this, &EditorSpelling::install));
  }
}

void EditorSpelling::install() {
  const QPointer<EditorSpelling> alive(this);
  const auto installer = std::make_shared<DictionaryInstaller>();
  installer_ = installer;
  installer->Status = [alive](const QString& what) {
    if (alive) {
      Q_EMIT alive->told(what);
    }
  };
  const bool hasEnded = installer->run();
  if (alive && hasEnded) {
    Q_EMIT told({});
    RedrawMenu();
    SpellCheckEditor(false);
  }
}
