#include "core/spell/cSharedSpell.h"

#include "SpellFiles.h"
#include "core/infra/Clock.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/spell/NumberWords.h"
#include "core/spell/WordListArchive.h"
#include "support/ScriptedToolkit.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A checker that knows these words.
class Spelling : public testing::Test {
 protected:
  void SetUp() override {
    put(folder.path(u"Dict/2of12.txt"_s),
        "I\r\ndon't\r\ndog\r\ndogs\r\nParis\r\nwell\r\nknown\r\ncaf\xE9\r\nthe\r\nt\r\n");
  }

  /// The text with each marked word in brackets.
  QString marked(QString text) {
    TextMarks marks = spell.Misspellings(text);
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
      text.insert(mark->end(), u']').insert(mark->start, u'[');
    }
    return text;
  }

  ProgramFolder folder;
  cSharedSpell spell;
};

}  // namespace

TEST_F(Spelling, AWordIsRightWhenAListHoldsItAndNumbersAndDatesAre) {
  for (const char16_t* right : {u"dog", u"Dog", u"DOG", u"dog's", u"Dog'S", u"don't", u"DON'T", u"paris", u"café",
                                u"CAFÉ", u"12", u"3/4/2005", u"10pm", u"d'sog"}) {
    EXPECT_TRUE(spell.WordOK(QString::fromUtf16(right))) << QString::fromUtf16(right).toStdString();
  }
  for (const char16_t* wrong : {u"", u"'s", u"dgo", u"dgo's", u"dogs'", u"cafe", u"don", u"12th", u"dog,", u" dog"}) {
    EXPECT_FALSE(spell.WordOK(QString::fromUtf16(wrong))) << QString::fromUtf16(wrong).toStdString();
  }
}

TEST(NumberWords, FiguresThatAreNumbersAndDates) {
  for (const char16_t* number : {u"0", u"12", u"-3.5", u"+1", u"1,000,000", u"1e5", u".5"}) {
    EXPECT_TRUE(NumberWords::isNumeric(number)) << QString::fromUtf16(number).toStdString();
  }
  for (const char16_t* other : {u"", u"e", u"-", u",", u"1x", u"12th", u"1e", u"1.2.3", u"inf", u"\u0661"}) {
    EXPECT_FALSE(NumberWords::isNumeric(other)) << QString::fromUtf16(other).toStdString();
  }
  for (const char16_t* date : {u"3/4/2005", u"31/12/99", u"12-31-1999", u"2005-04-03", u"3.4.2005", u"29/2", u"29/2/00",
                               u"10:30", u"23:59:59", u"10pm", u"5AM", u"10:30pm"}) {
    EXPECT_TRUE(NumberWords::isDate(date)) << QString::fromUtf16(date).toStdString();
  }
  for (const char16_t* other : {u"", u"3", u"31/31/2005", u"32/1", u"29/2/2005", u"3/4-2005", u"1/2/3/4", u"24:00",
                                u"13pm", u"pm", u"3/", u"/3/4", u"3/4/20055", u"10:30:00:00", u"11th"}) {
    EXPECT_FALSE(NumberWords::isDate(other)) << QString::fromUtf16(other).toStdString();
  }
}

TEST_F(Spelling, ATextFallsIntoWordsAndEachMarkStandsInItsPlace) {
  // Parted by "~".
  const QString texts =
      u"The dog.~[Teh] dog, [teh] dog!~[dgo]~the\r\n[dgo]\tdog~'dog' 'the dogs'~''[dgo]''~the dogs' [dgo's]~''' ' ''~"
      "dog's DOG'S~don't [the’t] [don’re] “dog”~well-known well—[nown]~12 3/4/2005 -5 [12th]~[na]ï[ve] café [CAF]É~"
      "\U0001F600[dgo]\U0001F600dog~жук dog~dog\u00A0the\u2028[teh]~the_dog [dog2]~ \r\n ~"_s;
  for (const QString& expected : texts.split(u'~')) {
    EXPECT_EQ(marked(QString(expected).remove(u'[').remove(u']')), expected);
  }
}

TEST_F(Spelling, ACleanedTextKeepsItsLengthAndOnlyWhatWordsAreMadeOf) {
  QString all;
  for (char16_t unit = 1; unit < 0x3000; ++unit) {
    all += QChar(unit);
  }
  QString cleaned = all;
  spell.CleanUpScene(cleaned);
  ASSERT_EQ(cleaned.size(), all.size());
  QString kept;
  for (qsizetype i = 0; i < all.size(); ++i) {
    const bool isApostrophe = all[i] == QChar(0x2019);
    EXPECT_TRUE(cleaned[i] == all[i] || cleaned[i] == (isApostrophe ? u'\'' : u' '));
    kept += cleaned[i] == u' ' || isApostrophe ? QString() : QString(cleaned[i]);
  }
  cleaned = u"couldn\u2019t"_s;
  spell.CleanUpScene(cleaned);
  EXPECT_EQ(cleaned, u"couldn't"_s) << "as word processors write it";
  EXPECT_EQ(kept, u"'0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyzáéíñóú"_s);
}

TEST_F(Spelling, NothingIsReadBeforeTheFirstCheck) {
  EXPECT_TRUE(spell.DictionaryFound());
  EXPECT_FALSE(spell.Initialised());
  EXPECT_TRUE(spell.DictAvailable());
  EXPECT_TRUE(spell.Initialised());
  EXPECT_EQ(spell.Dicts()[4].WordTotal, 10);
  EXPECT_FALSE(spell.Dicts()[1].Loaded);
}

TEST_F(Spelling, ListsAreReadALittleAtATimeAndACheckWaitsForTheRest) {
  QByteArray many;
  for (int word = 0; word < 40'000; ++word) {
    many += "word" + QByteArray::number(word) + "\r\n";
  }
  put(folder.path(u"Dict/3esl.txt"_s), many);
  int steps = 1;
  while (!spell.LoadSome()) {
    EXPECT_FALSE(spell.Available());
    ++steps;
  }
  EXPECT_GE(steps, 8);
  EXPECT_EQ(spell.Dicts()[6].WordTotal, 40'000);
  EXPECT_EQ(marked(u"dog dgo word39999"_s), u"dog [dgo] word39999"_s);

  cSharedSpell begun;
  EXPECT_FALSE(begun.LoadSome());
  EXPECT_EQ(begun.Misspellings(u"dog dgo word39999"_s).size(), 1U);
}

TEST_F(Spelling, WhoAsksWhileTheListsAreReadFindsNone) {
  ScriptedToolkit toolkit;
  // The program yields but a few times a second.
  const qint64 limit = Clock::ticks() + 60'000;
  bool asked = false;
  while (!asked && Clock::ticks() < limit) {
    cSharedSpell loading;
    toolkit.onYield = [&] {
      asked = true;
      EXPECT_FALSE(loading.DictAvailable());
      EXPECT_TRUE(loading.Misspellings(u"dgo"_s).empty());
      loading.InitDict();
      EXPECT_TRUE(loading.DictAvailable()) << "who reads them anew has them";
    };
    EXPECT_TRUE(loading.DictAvailable());
    EXPECT_EQ(loading.Misspellings(u"dgo"_s).size(), 1U);
  }
  EXPECT_TRUE(asked);
}

TEST(SpellingWithoutLists, TheCustomListAloneIsNoDictionary) {
  for (const char* custom : {"", "dog\n"}) {
    const ProgramFolder folder;
    put(folder.path(u"Dict/Custom.txt"_s), custom);
    put(folder.path(u"Dict/5desk.txt"_s), "");
    cSharedSpell spell;
    EXPECT_FALSE(spell.DictionaryFound());
    EXPECT_FALSE(spell.DictAvailable());
    EXPECT_TRUE(spell.Misspellings(u"dgo"_s).empty());
    EXPECT_EQ(spell.WordOK(u"dog"_s), *custom != '\0');
  }
}

TEST_F(Spelling, AnAddedWordIsRightNowAndInTheNextRun) {
  for (const auto& [added, text, file] : {std::tuple{u"dgo"_s, u"dgo Dgo's"_s, "dgo\r\n"},
                                          {u" “dgo,” "_s, u"dgo"_s, "dgo\r\n"},
                                          {u"dog"_s, u"dog"_s, "dog\r\n"},
                                          {u"...,"_s, u""_s, "(none)"},
                                          {u"naïve"_s, u"naïve"_s, "na\xC3\xAFve\r\nna\r\nve\r\n"},
                                          {u"O'Nan"_s, u"O'Nan's"_s, "O'Nan\r\n"},
                                          {u"the dgo, dog teh"_s, u"dgo teh"_s, "dgo\r\nteh\r\n"},
                                          {u"dog-dgo"_s, u"dgo"_s, "dgo\r\n"},
                                          {u"teh—dog,dgo"_s, u"teh—dgo"_s, "teh\r\ndgo\r\n"},
                                          {u"don’re"_s, u"don're don’re"_s, "don're\r\n"}}) {
    QFile::remove(folder.path(u"Dict/Custom.txt"_s));
    cSharedSpell mine;
    EXPECT_EQ(mine.AddWordToCustomDict(added), QString());
    EXPECT_EQ(contentOf(folder.path(u"Dict/Custom.txt"_s)), file) << added.toStdString();
    EXPECT_TRUE(mine.Misspellings(text).empty()) << text.toStdString();
    cSharedSpell next;
    EXPECT_TRUE(next.Misspellings(text).empty()) << text.toStdString();
  }
}

TEST_F(Spelling, ListsOfAnArchiveReplaceTheOldOnesAndNeverTheCustomOne) {
  put(folder.path(u"Dict/Custom.txt"_s), "mine\r\n");
  put(folder.path(u"Dict/2of12inf.txt"_s), "old\r\n");
  EXPECT_FALSE(WordListArchive::unpack()) << "there is no archive";
  put(folder.path(u"from/12dicts/2of12inf.txt"_s), "dgo\r\n");
  put(folder.path(u"from/12dicts/readme.html"_s), "read");
  put(folder.path(u"from/CUSTOM.txt"_s), "yours\r\n");
  cSHAREDZipFiles zip;
  zip.ZipFileName = WordListArchive::path();
  zip.RootDirectory = folder.path(u"from"_s);
  zip.RecurseFolders = true;
  zip.AddFile(folder.path(u"from"_s));
  zip.MakeZipFile();
  EXPECT_TRUE(WordListArchive::unpack());
  spell.InitDict();
  EXPECT_EQ(marked(u"dgo mine yours old"_s), u"dgo mine [yours] [old]"_s);
  EXPECT_EQ(QDir(folder.path(u"Dict"_s)).entryList(QDir::Files),
            QStringList({u"2of12.txt"_s, u"2of12inf.txt"_s, u"Custom.txt"_s, u"readme.html"_s}));
  EXPECT_EQ(WordListArchive::fileName(), u"12dicts-5.0.zip"_s);
}

TEST_F(Spelling, ListsThatAreInstalledElsewhereServeBesideTheWritersOwn) {
  put(folder.path(u"../share/quillane4/Dict/5desk.txt"_s), "dgo\r\n");
  EXPECT_EQ(marked(u"dgo dog teh"_s), u"dgo dog [teh]"_s);
}
