#include "gui/editor/WordLookup.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"

#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Stands for the word in an address.
constexpr auto kWord = "@@@"_L1;
constexpr auto kDictionary = "https://en.wiktionary.org/wiki/Special:Search?search=@@@"_L1;
constexpr auto kThesaurus = "https://en.wiktionary.org/wiki/Special:Search?search=Thesaurus:@@@"_L1;

/// Written back, so that whoever wants another site finds the key in the settings file.
QString addressSetting(const QString& key, QLatin1StringView otherwise) {
  const QString stored = Settings().sGet(key).toString().trimmed();
  const QString address = stored.isEmpty() ? QString(otherwise) : stored;
  Settings().sSet(key, address);
  return address;
}

void WordLookup(QString url, const QString& selected) {
  const QString word = selected.trimmed();
  if (word.isEmpty()) {
    toolkit().MsgBox(u"Please select a word"_s);
    return;
  }
  if (std::any_of(word.begin(), word.end(), [](QChar unit) { return unit.isSpace(); })) {
    toolkit().MsgBox(u"Please select a single word"_s);
    return;
  }
  url.replace(kWord, QString::fromLatin1(QUrl::toPercentEncoding(word)));
  if (!toolkit().openDocument(url)) {
    toolkit().MsgBox(translated(u"%1 could not be opened."_s).arg(url));
  }
}

}  // namespace

void lookUpInDictionary(const QString& selected) {
  WordLookup(addressSetting(u"DictionaryURL"_s, kDictionary), selected);
}

void lookUpInThesaurus(const QString& selected) {
  WordLookup(addressSetting(u"ThesaurusURL"_s, kThesaurus), selected);
}
