#include "core/spell/cSharedSpell.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/spell/NumberWords.h"
#include "core/spell/WordListArchive.h"
#include "core/spell/WordTokens.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kPossessive(u"'s");

bool isWordPart(QChar character) {
  return character.isLetterOrNumber() || character.isMark() || character.isSurrogate();
}

/// Without what stands around a word in a text: quotes, commas, blanks.
QString bare(const QString& word) {
  const auto first = std::find_if(word.begin(), word.end(), isWordPart);
  const auto last = std::find_if(word.rbegin(), std::make_reverse_iterator(first), isWordPart);
  return QStringView(first, last.base()).toString();
}

}  // namespace

bool cSharedSpell::DictionaryFound() const {
  if (initialised_) {
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
  if (!initialised_) {
    InitDict();
  }
  return available_;
}

void cSharedSpell::InitDict() {
  initialised_ = true;
  available_ = false;
  if (!WordLists::isFolderThere()) {
    return;
  }
  const Guard guard("InitDict", "cSharedSpell");
  for (size_t list = 0; list < WordLists::kCount; ++list) {
    bool loaded = false;
    dicts_[list].LoadDict(WordLists::pathOf(list), true, loaded);
    guard([] { Subs().RegularDoEvents(); });
  }
  available_ = std::any_of(dicts_.begin() + 1, dicts_.end(), [](const cDict& dict) { return dict.Loaded; });
  Logging().LogEvent(u"Dictionaries initialised"_s);
}

bool cSharedSpell::isListed(QStringView word) const {
  const WordKey key(word);
  return std::any_of(dicts_.begin(), dicts_.end(), [&](const cDict& dict) { return dict.WordExists(key); });
}

bool cSharedSpell::WordOK(QStringView word) {
  if (!initialised_) {
    InitDict();
  }
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
  if (!initialised_) {
    InitDict();
  }
  const QString added = bare(word);
  QStringList words;
  if (std::none_of(added.begin(), added.end(), [](QChar c) { return c.isSpace(); })) {
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
  toolkit().MsgBox(u"To enable spell checking, follow these instructions:\n1) Download the latest 12dicts from "_s +
                   WordListArchive::page() + u"\n2) Extract to "_s + Paths::programFolder() + u"Dict"_s +
                   u"\n3) Restart this program"_s);
}

cSharedSpell& Spell() {
  static cSharedSpell spell;
  return spell;
}
