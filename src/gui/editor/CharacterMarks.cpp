#include "gui/editor/CharacterMarks.h"

#include "core/infra/Guard.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/spell/TextMarks.h"
#include "core/spell/cSharedSpell.h"
#include "core/text/cSharedText.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/toolkit/RichTextBox.h"

#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace {

/// As a text has it: without quotation marks and the like.
QString cleaned(const QString& name) {
  QString clean = name;
  Spell().CleanUpScene(clean);
  return clean.trimmed().remove(u'\'');
}

bool isCalled(const clsCharacter& character, const QString& name) {
  return !name.isEmpty() &&
         (TextTools().StringsEqual(name, character.Title()) || TextTools().StringsEqual(name, character.FullName) ||
          character.AlternateNames.contains(name, Qt::CaseInsensitive));
}

qint32 characterCalled(const QString& name) {
  const QString clean = cleaned(name);
  for (const auto& character : g_Project->Chars) {
    if (isCalled(*character, name) || isCalled(*character, clean)) {
      return character->ID();
    }
  }
  return 0;
}

}  // namespace

CharacterMarks::CharacterMarks(RichTextBox& pane, TextMarkLayer& layer) : QObject(&pane), pane_(pane), layer_(layer) {
  pane.viewport()->installEventFilter(this);
}

QStringList CharacterMarks::knownNames() {
  QStringList names;
  for (const auto& character : g_Project->Chars) {
    names += namesToMark(character->Title(), character->FullName, character->AlternateNames);
  }
  return names;
}

void CharacterMarks::show() {
  layer_.setMarks(TextMark::Kind::Name, findNames(pane_.Text(), knownNames()));
}

void CharacterMarks::hide() {
  layer_.setMarks(TextMark::Kind::Name, {});
}

qint32 CharacterMarks::characterAt(qsizetype position) const {
  const auto mark = layer_.markAt(position);
  if (!mark || mark->kind != TextMark::Kind::Name) {
    return 0;
  }
  return characterCalled(pane_.Text().sliced(mark->start, mark->length).trimmed());
}

// The sheet is modal: it opens when the pane is through with its mouse event.
bool CharacterMarks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonDblClick) {
    const auto& click = *static_cast<QMouseEvent*>(event);
    const qsizetype caret = pane_.fromDocument(pane_.cursorForPosition(click.pos()).position());
    if (click.button() == Qt::LeftButton && layer_.kindAt(caret) == TextMark::Kind::Name) {
      QMetaObject::invokeMethod(
          this, [this, caret] { openFrom(caret); }, Qt::QueuedConnection);
    }
  }
  return QObject::eventFilter(watched, event);
}

void CharacterMarks::openFrom(qsizetype caret) {
  Guard("txtMain_DblClick", "frmEditor")([&] {
    const qint32 id = characterAt(caret);
    pane_.setSelStart(caret);
    if (id != 0) {
      Q_EMIT characterWanted(id);
    }
  });
}
