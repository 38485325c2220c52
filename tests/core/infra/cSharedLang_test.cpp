#include "core/infra/cSharedLang.h"

#include "core/infra/Paths.h"
#include "core/infra/WholeText.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

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
  EXPECT_EQ(list.titles, QStringList({u"English"_s, u"Deutsch"_s, u"Language 2"_s}));
  EXPECT_EQ(list.chosen, u"Deutsch");
  lang_.LoadLanguage(3);
  EXPECT_EQ(lang_.CurrentLanguage(), u"Deutsch");
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

TEST_F(LangTest, WritesWhatTranslatorsNeed) {
  Form first({u"&Save..."_s, u"Open"_s});
  Form last({u"Save"_s, u"Two\nlines"_s});
  ASSERT_TRUE(lang_.GenerateLanguageTemplate({&first, &last}));
  EXPECT_EQ(fileBytes(folder_.path(u"FormsText.txt"_s)),
            QByteArray("Save||Save\r\nTwo\\nlines||Two\\nlines\r\n-||-\r\nOpen||Open\r\n-||-\r\n"));
  file(u"template.txt"_s, "Template\n#a||a\nSave||Save\nOpen||Open\n");
  file(u"ru.txt"_s, u"Русский\nOpen||Открыть"_s.toUtf8());
  lang_.UpdateTemplates(folder_.path(u"Languages"_s));
  lang_.UpdateTemplates(folder_.path(u"Languages"_s));
  EXPECT_EQ(WholeText::fromBytes(fileBytes(folder_.path(u"Languages/ru.txt"_s))),
            u"Русский\nOpen||Открыть\r\nSave||Save\r\n");
}

}  // namespace
