#include "core/model/SaveNote.h"

#include "core/infra/Clock.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "support/TestLanguage.h"

#include <QLocale>
#include <QScopeGuard>

#include <cerrno>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SaveNote, HasTheHourAndMinuteAsTheLocaleHasThem) {
  const QLocale former;
  const auto restored = qScopeGuard([&] {
    QLocale::setDefault(former);
    Clock::set({});
  });
  Clock::set(QDateTime({2024, 3, 4}, {14, 5, 59}));
  SaveNote note;
  EXPECT_EQ(note.text(), QString());
  note.bookSaved();
  const std::pair<QLocale, QString> cases[] = {
      {QLocale(QLocale::English, QLocale::UnitedKingdom), u"Saved 14:05"_s},
      {QLocale(QLocale::Finnish), u"Saved 14.05"_s},
      {QLocale(QLocale::English, QLocale::UnitedStates), u"Saved 2:05 PM"_s},
  };
  for (const auto& [locale, expected] : cases) {
    QLocale::setDefault(locale);
    EXPECT_EQ(note.text().simplified(), expected) << locale.name().toStdString();
  }
}

TEST(SaveNote, SaysWhyInPlainWordsWhereItCan) {
  SaveNote note;
  const std::pair<QString, QString> cases[] = {
      {RuntimeError::fromErrno(ENOSPC, u"/a/b"_s).description(), u"Not saved: the disk is full"_s},
      {RuntimeError::fromErrno(EACCES, u"/a/b"_s).description(),
       u"Not saved: the file or its folder can't be written"_s},
      {u"Something\nelse"_s, u"Not saved: Something else"_s},
      {QString(), u"Not saved"_s},
  };
  for (const auto& [why, expected] : cases) {
    note.bookNotSaved(why);
    EXPECT_EQ(note.text(), expected);
  }
}

TEST(SaveNote, AFailureIsMendedByASaveOfAsMuch) {
  SaveNote note;
  note.textNotSaved({});
  note.textSaved(false);
  EXPECT_TRUE(note.failed()) << "others are unsaved";
  note.textSaved(true);
  EXPECT_FALSE(note.failed());
  note.bookNotSaved({});
  note.textNotSaved(u"the text"_s);
  note.textSaved(true);
  EXPECT_EQ(note.text(), u"Not saved"_s);
  note.bookSaved();
  EXPECT_FALSE(note.failed());
}

TEST(SaveNote, IsInTheLanguage) {
  const TestLanguage language(
      u"Saved %1||Um %1 gesichert\nNot saved: %1||Offen: %1\nthe disk is full||voll\n"
      "the text of %1 scene(s) could not be written||%1 Texte fehlen\n"_s);
  SaveNote note;
  note.bookSaved();
  EXPECT_TRUE(note.text().startsWith(u"Um "_s)) << note.text();
  const std::pair<QString, QString> cases[] = {
      {RuntimeError::fromErrno(ENOSPC, u"/a/b"_s).description(), u"Offen: voll"_s},
      {toldText(u"the text of %1 scene(s) could not be written"_s, {u"3"_s}), u"Offen: 3 Texte fehlen"_s},
      {u"Something else"_s, u"Offen: Something else"_s},
  };
  for (const auto& [why, expected] : cases) {
    note.bookNotSaved(why);
    EXPECT_EQ(note.text(), expected);
  }
}
