#include "core/infra/cSharedLang.h"

#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/WholeText.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"
#include "support/TestLanguage.h"

#include <QDir>

#include <cerrno>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Remembers what was English, as a window does.
class Form : public TranslatableForm {
 public:
  explicit Form(const QStringList& texts) {
    for (const QString& text : texts) {
      texts_.append({text});
    }
  }
  void eachText(const std::function<QString(const FormText&)>& translate) override {
    for (FormText& text : texts_) {
      const QString put = translate(text);
      text.english = text.english.isNull() ? text.shown : text.english;
      text.shown = put;
    }
  }
  bool fontExists(const QString& family) const override { return family == u"Serif"; }
  void setFontFamily(const QString& family) override { font = family; }
  QStringList shown() const {
    QStringList result;
    for (const FormText& text : texts_) {
      result.append(text.shown);
    }
    return result;
  }

  QString font;

 private:
  QList<FormText> texts_;
};

class LangTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QDir().mkpath(folder_.path(u"Languages"_s));
    lang_.OverrideLanguagePath(folder_.path() + u'/');
  }
  void file(const QString& name, const QByteArray& bytes) const {
    writeFile(folder_.path(u"Languages/"_s + name), bytes);
  }
  void load(const QByteArray& bytes) {
    file(u"a.txt"_s, bytes);
    lang_.LoadAllLanguages();
    lang_.LoadLanguage(1);
  }

  ScratchFolder folder_;
  cSharedLang lang_;
};

TEST_F(LangTest, ListsTheLanguagesByTheirTitles) {
  lang_.OverrideLanguagePath(folder_.path(u"not there"_s));
  file(u"b.txt"_s, "# me\r\n\r\n \tDeutsch \r\nSave||Sichern\r\n");
  file(u"c.txt"_s, "# nothing but this");
  file(u"Template.TXT"_s, "Template\nSave||Save");
  file(u"other.lst"_s, "Other");
  file(u"d.txt"_s, QByteArray(60, 'x') + " y\nSave||Bewaar");
  file(u"e.txt"_s, "#" + QByteArray(4000, '-') +
                       "\nFran\xE7"
                       "ais\n");
  file(u"f.txt"_s, "Huge\n" + QByteArray(1 << 20, '-'));
  struct List : LanguageList {
    void clear() override { titles.clear(); }
    void add(const QString& title) override { titles.append(title); }
    void select(const QString& title) override { chosen = title; }
    QStringList titles{u"old"_s};
    QString chosen;
  } list;
  lang_.FillLanguageList(list);
  lang_.LoadLanguage(1);
  lang_.SetListToSelected(list);
  EXPECT_EQ(list.titles, QStringList({u"English"_s, u"Deutsch"_s, u"Language 2"_s, QString(60, u'x'), u"Français"_s}));
  EXPECT_EQ(list.chosen, u"Deutsch");
  lang_.LoadLanguage(5);
  EXPECT_EQ(lang_.CurrentLanguage(), u"Deutsch");
  lang_.LoadLanguage(3);
  EXPECT_EQ(lang_.CurrentLanguage(), list.titles.at(3));
  EXPECT_EQ(lang_.GetTranslation(u"Save"_s), u"Bewaar");
}

// A translator's own file, and what came with the program.
TEST(LangFolders, TheProgramsOwnGoesFirstAndHidesNoOther) {
  const ScratchFolder folder;
  const QString former = Paths::programFolder();
  QDir().mkpath(folder.path(u"share/quillane4/Languages"_s));
  QDir().mkpath(folder.path(u"bin/Languages"_s));
  writeFile(folder.path(u"share/quillane4/Languages/a.txt"_s), "Deutsch\nSave||Sichern\n");
  writeFile(folder.path(u"share/quillane4/Languages/b.txt"_s), "Italiano\nSave||Salva\n");
  writeFile(folder.path(u"bin/Languages/x.txt"_s), "Deutsch\nSave||Speichern\n");
  Paths::overrideFolders(folder.path(u"bin"_s));
  cSharedLang lang;
  lang.LoadAllLanguages();
  Paths::overrideFolders(former);
  ASSERT_EQ(lang.LanguageCount(), 2);
  lang.LoadLanguage(lang.LanguageIndex(u"Italiano"_s));
  EXPECT_EQ(lang.GetTranslation(u"Save"_s), u"Salva");
  lang.LoadLanguage(lang.LanguageIndex(u"Deutsch"_s));
  EXPECT_EQ(lang.GetTranslation(u"Save"_s), u"Speichern");
}

TEST_F(LangTest, LooksUpExactly) {
  load(
      "Deutsch\nSave||Sichern\nSave||Speichern\n\tOpen\t||  \xD6"
      "ffnen\tjetzt \nClose\nExit||\nTwo\\nlines||Zwei\\nZeilen\n");
  const QList<std::pair<QString, QString>> told{{u"Save"_s, u"Sichern"_s},
                                                {u"save"_s, u"save"_s},
                                                {u"Save "_s, u"Save "_s},
                                                {u"Open"_s, u"Öffnenjetzt"_s},
                                                {u"Close"_s, u"Close"_s},
                                                {u"Exit"_s, u"Exit"_s},
                                                {u""_s, u""_s},
                                                {u"Two\nlines"_s, u"Zwei\nZeilen"_s}};
  for (const auto& [english, german] : told) {
    EXPECT_EQ(lang_.GetTranslation(english), german);
  }
}

TEST_F(LangTest, KeepsMarksDotsAndBlanksOutOfTheKeys) {
  load(
      "Deutsch\nSave As||Speichern unter\nTitle||Titel\nDate:||Datum :\n%1 words||%1 Worte\n%1 of "
      "%2||%1\nDone.||Fertig.\n");
  const QList<std::pair<QString, QString>> told{{u"Save &As..."_s, u"Speichern unter..."_s},
                                                {u" Title: "_s, u" Titel: "_s},
                                                {u"&Date:"_s, u"Datum :"_s},
                                                {u"%1 words"_s, u"%1 Worte"_s},
                                                {u"%1 of %2"_s, u"%1 of %2"_s},
                                                {u"Done."_s, u"Fertig."_s},
                                                {u"Done"_s, u"Done"_s},
                                                {u"&Title\tCtrl+T"_s, u"Titel\tCtrl+T"_s},
                                                {u"&Unknown..."_s, u"&Unknown..."_s}};
  for (const auto& [english, german] : told) {
    EXPECT_EQ(lang_.TranslationOf(english), german);
  }
}

TEST_F(LangTest, AColonIsWrittenAsTheLanguageDoes) {
  load(u"# Colon:\u00a0:\nFrançais\nTitle||Titre\nUse it||Utiliser : oui\n"_s.toUtf8());
  EXPECT_EQ(lang_.TranslationOf(u"&Title:"_s), u"Titre\u00a0:"_s);
  EXPECT_EQ(lang_.TranslationOf(u"Title"_s), u"Titre"_s);
  EXPECT_EQ(lang_.TranslationOf(u"Use it..."_s), u"Utiliser : oui..."_s);
  EXPECT_EQ(lang_.TranslationOf(u"Title\u00a0:"_s), u"Titre\u00a0:"_s) << "has a blank there already";
  EXPECT_EQ(lang_.TranslationOf(u"Name:"_s), u"Name:"_s) << "an English text stays as it is";
  lang_.LoadLanguage(0);
  EXPECT_EQ(lang_.TranslationOf(u"Titre\u00a0:"_s), u"Title:"_s);
}

TEST_F(LangTest, AFormGoesToALanguageAndBack) {
  // Two texts share a translation.
  file(u"a.txt"_s, "#font: Serif\nDeutsch\nSave||Sichern\nBackup||Sichern\n");
  file(u"b.txt"_s, "# Font:Nowhere\nNederlands\nSave||Bewaar");
  const QStringList english{u"Save"_s, u"Backup"_s, u"Sichern"_s, u"Else"_s};
  Form form(english);
  lang_.TranslateForm(form);
  lang_.LoadAllLanguages();
  lang_.Localise(form, 1);
  EXPECT_EQ(form.shown(), QStringList({u"Sichern"_s, u"Sichern"_s, u"Sichern"_s, u"Else"_s}));
  EXPECT_EQ(form.font, u"Serif");
  lang_.Localise(form, 2);
  EXPECT_EQ(form.shown(), QStringList({u"Bewaar"_s, u"Backup"_s, u"Sichern"_s, u"Else"_s}));
  EXPECT_EQ(form.font, QString()) << "a font that isn't there is passed over";
  lang_.Localise(form, 0);
  EXPECT_EQ(form.shown(), english);
  EXPECT_TRUE(lang_.IsEnglish());
  EXPECT_EQ(lang_.GetTranslation(u"Bewaar"_s), u"Save");
}

// What a window had before its language was remembered nowhere.
TEST_F(LangTest, OnTheWayBackEnglishStaysEnglish) {
  load(
      "Fran\xE7"
      "ais\nDescription||Description\nDesc||Description\nSave||Sauver\n");
  lang_.LoadLanguage(0);
  Form form({u"&Description:"_s, u"Sauver"_s});
  lang_.TranslateForm(form);
  EXPECT_EQ(form.shown(), QStringList({u"&Description:"_s, u"Save"_s}));
}

TEST_F(LangTest, WritesWhatTranslatorsNeed) {
  Form first({u"&Save..."_s, u"Open"_s});
  Form last({u"Save"_s, u"Two\nlines"_s});
  ASSERT_TRUE(lang_.GenerateLanguageTemplate({&first, &last}));
  EXPECT_EQ(fileBytes(folder_.path(u"FormsText.txt"_s)),
            QByteArray("Save||Save\r\nTwo\\nlines||Two\\nlines\r\n-||-\r\nOpen||Open\r\n-||-\r\n"));
  file(u"template.txt"_s, "Template\n#a||a\nSave||Save\nOpen||Open\n");
  file(u"ru.txt"_s, u"Русский\nOpen||Открыть"_s.toUtf8());
  file(u"de.txt"_s,
       "Deutsch\nOpen||\xC3\x96"
       "ffnen");
  file(u"fr.txt"_s,
       "Fran\xE7"
       "ais\nOpen||Ouvrir\n");
  lang_.UpdateTemplates(folder_.path(u"Languages"_s));
  lang_.UpdateTemplates(folder_.path(u"Languages"_s));
  EXPECT_EQ(WholeText::fromBytes(fileBytes(folder_.path(u"Languages/ru.txt"_s))),
            u"Русский\nOpen||Открыть\r\nSave||Save\r\n");
  EXPECT_EQ(fileBytes(folder_.path(u"Languages/de.txt"_s)),
            "Deutsch\nOpen||\xC3\x96"
            "ffnen\r\nSave||Save\r\n");
  EXPECT_EQ(fileBytes(folder_.path(u"Languages/fr.txt"_s)),
            "Fran\xE7"
            "ais\nOpen||Ouvrir\nSave||Save\r\n");
}

}  // namespace

TEST(Translated, HasNoMarksOfKeysWhereNoneAreShown) {
  const TestLanguage language(u"Action||&Handlung\nSave it?||Sichern && &weiter?\n%1 is full||&Voll: %1\n"_s);
  EXPECT_EQ(translated(u"Action"_s), u"Handlung"_s);
  EXPECT_EQ(translated(u"Save it?"_s), u"Sichern & weiter?"_s);
  EXPECT_EQ(translated(u"R&D"_s), u"R&D"_s) << "none of ours";
  const QString told = toldText(u"%1 is full"_s, {u"R&D"_s});
  EXPECT_EQ(translated(told), u"Voll: R&D"_s);
  EXPECT_EQ(translatedCaption(u"Action"_s), u"&Handlung"_s);
  EXPECT_EQ(translatedCaption(told), u"Voll: R&&D"_s);
  toldText(u"%1 is full"_s, {u"* * *"_s});
  EXPECT_EQ(translatedCaption(u"* * * is f&ull"_s), u"Voll: * * *"_s) << "a menu has marked a key";
  EXPECT_EQ(translated(toldText(u"> %1"_s, {toldText(told)})), u"> Voll: R&D"_s) << "told twice";
}

TEST(ToldText, IsEnglishUntilItIsShown) {
  const auto tell = [](int from, int until) {
    for (int i = from; i < until; ++i) {
      toldText(u"Told %1"_s, {QString::number(i)});
    }
  };
  tell(0, 3000);
  const TestLanguage language(
      u"Error %1 - %2 in %3 of %4||Fehler %1: %2 (%3, %4)\nDisk full||Voll\n%1 could not be made in %2||In %2 ging %1 nicht\n"_s);
  const QString cause = RuntimeError::fromErrno(ENOSPC, u"/a %2"_s).description();
  EXPECT_EQ(cause, u"Disk full: /a %2"_s);
  EXPECT_EQ(translated(cause), u"Voll: /a %2"_s);
  const QString outer = toldText(u"%1 could not be made in %2"_s, {cause, u"%1"_s});
  EXPECT_EQ(outer, u"Disk full: /a %2 could not be made in %1"_s);
  EXPECT_EQ(translatedLines(u"Disk full\n"_s + outer), u"Voll\nIn %1 ging Voll: /a %2 nicht"_s);
  const QString fourth = toldText(u"Error %1 - %2 in %3 of %4"_s, {u"61"_s, cause, u"%4"_s, u"clsA"_s});
  EXPECT_EQ(fourth, u"Error 61 - Disk full: /a %2 in %4 of clsA"_s);
  tell(3000, 5000);
  EXPECT_EQ(translated(fourth), u"Fehler 61: Voll: /a %2 (%4, clsA)"_s) << "the last ones are kept";
  Form form({outer});
  Lang().TranslateForm(form);
  EXPECT_EQ(form.shown().constFirst(), u"In %1 ging Voll: /a %2 nicht"_s);
  Lang().LoadLanguage(0);
  Lang().TranslateForm(form);
  EXPECT_EQ(form.shown().constFirst(), outer);
}
