#include "core/spell/cSharedSpell.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/spell/NumberWords.h"
#include "core/spell/WordListArchive.h"
#include "core/spell/WordTokens.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kPossessive(u"'s");

bool isWordPart(QChar character) {
  return character.isLetterOrNumber() || character.isMark() || character.isSurrogate();
}

/// Whether it is one for a reader: whatever a check makes of it, a dash or a comma parts words.
bool isOneWord(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return isWordPart(c) || c == u'\''; });
}

/// Without what stands around a word in a text: quotes, commas, blanks.
QString bare(const QString& word) {
  const auto first = std::find_if(word.begin(), word.end(), isWordPart);
  const auto last = std::find_if(word.rbegin(), std::make_reverse_iterator(first), isWordPart);
  return QStringView(first, last.base()).toString();
}

}  // namespace

bool cSharedSpell::DictionaryFound() const {
  if (loaded_) {
    return available_;
  }
  for (size_t list = WordLists::kCustom + 1; list < WordLists::kCount; ++list) {
    const QString path = WordLists::pathOf(list);
    if (Files().FileExists(path) && Files().FileSize(path) > 0) {
      return true;
    }
  }
  return false;
}

bool cSharedSpell::DictAvailable() {
  finishLoad();
  return available_;
}

void cSharedSpell::InitDict() {
  initialised_ = false;
  loaded_ = false;
  load();
}

void cSharedSpell::beginLoad() {
  initialised_ = true;
  available_ = false;
  loaded_ = !WordLists::isFolderThere();
  reading_ = 0;
  if (!loaded_) {
    dicts_[reading_].BeginLoad(WordLists::pathOf(reading_), true);
  }
}

bool cSharedSpell::LoadSome() {
  if (!initialised_) {
    beginLoad();
  }
  if (loaded_ || !dicts_[reading_].LoadSome()) {
    return loaded_;
  }
  if (++reading_ < WordLists::kCount) {
    dicts_[reading_].BeginLoad(WordLists::pathOf(reading_), true);
    return false;
  }
  loaded_ = true;
  available_ = std::any_of(dicts_.begin() + 1, dicts_.end(), [](const cDict& dict) { return dict.Loaded; });
  Logging().LogEvent(u"Dictionaries initialised"_s);
  return true;
}

// Who asks while this yields has to do with what there is.
void cSharedSpell::finishLoad() {
  if (!loaded_ && !finishing_) {
    load();
  }
}

// One that begins while another yields reads everything, and leaves nothing to do for that.
void cSharedSpell::load() {
  const QScopedValueRollback finishing(finishing_, true);
  const Guard guard("InitDict", "cSharedSpell");
  while (!LoadSome()) {
    guard([] { Subs().RegularDoEvents(); });
  }
}

bool cSharedSpell::isListed(QStringView word) const {
  const WordKey key(word);
  return std::any_of(dicts_.begin(), dicts_.end(), [&](const cDict& dict) { return dict.WordExists(key); });
}

bool cSharedSpell::WordOK(QStringView word) {
  finishLoad();
  if (NumberWords::isNumeric(word) || NumberWords::isDate(word) || isListed(word)) {
    return true;
  }
  if (!word.contains(kPossessive, Qt::CaseInsensitive)) {
    return false;
  }
  return isListed(word.toString().remove(kPossessive.toString(), Qt::CaseInsensitive));
}

void cSharedSpell::CleanUpScene(QString& text) const {
  WordTokens::cleanUp(text);
}

TextMarks cSharedSpell::Misspellings(const QString& text) {
  TextMarks marks;
  if (!DictAvailable()) {
    return marks;
  }
  QString cleaned = text;
  CleanUpScene(cleaned);
  WordTokens::each(cleaned, [&](qsizetype start, QStringView word) {
    if (!WordOK(word)) {
      marks.push_back({start, word.size(), TextMark::Kind::Misspelling});
    }
  });
  return marks;
}

QString cSharedSpell::AddWordToCustomDict(const QString& word) {
  finishLoad();
  QString added = bare(word);
  // As a check asks for it.
  added.replace(u'\u2019', u'\'');
  QStringList words;
  if (isOneWord(added)) {
    words.append(added);
  }
  QString cleaned = added;
  CleanUpScene(cleaned);
  WordTokens::each(cleaned, [&](qsizetype, QStringView piece) {
    if (piece.size() != added.size() && !WordOK(piece)) {
      words.append(piece.toString());
    }
  });
  return dicts_[WordLists::kCustom].AddNewWords(words);
}

void cSharedSpell::ShowInstructions() const {
  toolkit().MsgBox(translated(u"To enable spell checking, follow these instructions:\n"
                              "1) Download the latest 12dicts from %1\n2) Extract to %2\n3) Restart this program"_s)
                       .arg(WordListArchive::page(), Paths::programFolder() + u"Dict"_s));
}

cSharedSpell& Spell() {
  static cSharedSpell spell;
  return spell;
}
