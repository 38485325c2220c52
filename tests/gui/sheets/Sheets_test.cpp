// The sheets of chapters, characters, locations and items: what they show, take and give back, and that no word that
// was typed goes unasked.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/sheets/SheetTest.h"
#include "gui/toolkit/MemoEdit.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

struct Kind {
  QString form;
  QString nameField;
  QString complaint;
  std::function<bool()> open;
  std::function<QString()> name;
};

const QList<Kind>& kinds() {
  static const QList<Kind> all{
      {u"frmEditChapter"_s, u"txtTitle"_s, u"You must specify a title"_s,
       [] { return g_Project->ChapterByID(1)->Edit(); }, [] { return g_Project->ChapterByID(1)->Title; }},
      {u"frmEditCharacter"_s, u"txtShortName"_s, u"You must specify a name"_s,
       [] { return g_Project->CharByID(1)->Edit(0); }, [] { return g_Project->CharByID(1)->Title(); }},
      {u"frmEditLocation"_s, u"txtTitle"_s, u"You must specify a name"_s,
       [] { return g_Project->LocationByID(1)->Edit(); }, [] { return g_Project->LocationByID(1)->Title; }},
      {u"frmEditItem"_s, u"txtTitle"_s, u"You must specify a name"_s, [] { return g_Project->ItemByID(1)->Edit(); },
       [] { return g_Project->ItemByID(1)->Title; }},
  };
  return all;
}

QLineEdit& line(const QDialog& sheet, const char* name) {
  return childOf<QLineEdit>(sheet, QString::fromLatin1(name));
}

MemoEdit& memo(const QDialog& sheet, const char* name) {
  return childOf<MemoEdit>(sheet, QString::fromLatin1(name));
}

}  // namespace

TEST_F(SheetTest, TheNameIsSelectedAtFirstAndEnterConfirmsWhatIsTypedOverIt) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.form);
    const bool confirmed = during(kind.open, [&](QDialog& sheet) {
      EXPECT_EQ(sheet.objectName(), kind.form);
      const auto& name = childOf<QLineEdit>(sheet, kind.nameField);
      EXPECT_TRUE(name.hasFocus());
      EXPECT_EQ(name.selectedText(), kind.name());
      QTest::keyClicks(sheet.focusWidget(), u"New"_s);
      QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(kind.name(), u"New"_s);
  }
}

TEST_F(SheetTest, WhoLeavesWithChangesIsAskedAndWhoHasNoneIsNot) {
  const auto leaveByEscape = [](QDialog& sheet) { QTest::keyClick(&sheet, Qt::Key_Escape); };
  const auto leaveByClosing = [](QDialog& sheet) { sheet.close(); };
  const auto leaveByCancel = [](QDialog& sheet) { childOf<QPushButton>(sheet, u"cmdExit"_s).click(); };
  const std::function<void(QDialog&)> ways[] = {leaveByEscape, leaveByClosing, leaveByCancel};
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.form);
    for (const auto& leave : ways) {
      const QString before = kind.name();
      EXPECT_FALSE(during(kind.open, [&](QDialog& sheet) {
        leave(sheet);
        EXPECT_FALSE(sheet.isVisible());
      }));
      toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::Cancel);
      toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::No);
      EXPECT_FALSE(during(kind.open, [&](QDialog& sheet) {
        QTest::keyClicks(sheet.focusWidget(), u"Typed"_s);
        leave(sheet);
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(toolkit.lastButtons, Buttons::YesNoOrBack);
        EXPECT_EQ(childOf<QLineEdit>(sheet, kind.nameField).text(), u"Typed"_s);
        leave(sheet);
        EXPECT_FALSE(sheet.isVisible());
      }));
      EXPECT_EQ(kind.name(), before);
      toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::Yes);
      EXPECT_TRUE(during(kind.open, [&](QDialog& sheet) {
        QTest::keyClicks(sheet.focusWidget(), before + u'!');
        leave(sheet);
      }));
      EXPECT_EQ(kind.name(), before + u'!');
    }
  }
}

TEST_F(SheetTest, WithoutANameNothingIsConfirmed) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.form);
    const QString before = kind.name();
    for (const QString& typed : {QString(), u"  "_s}) {
      toolkit.expectBox(kind.complaint);
      EXPECT_FALSE(during(kind.open, [&](QDialog& sheet) {
        auto& name = childOf<QLineEdit>(sheet, kind.nameField);
        name.setText(typed);
        if (auto* const tabs = sheet.findChild<QTabWidget*>()) {
          tabs->setCurrentIndex(1);
        }
        childOf<QPushButton>(sheet, u"cmdOK"_s).click();
        EXPECT_TRUE(sheet.isVisible() && name.isVisible() && name.hasFocus());
      }));
    }
    EXPECT_EQ(kind.name(), before);
  }
}

TEST_F(SheetTest, WhatHasLeftTheBookStaysOnItsSheetToBeCopied) {
  toolkit.expectBox(u"This chapter isn't in the book any more"_s);
  toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::No);
  EXPECT_FALSE(during(kinds()[0].open, [](QDialog& sheet) {
    newProject();
    QTest::keyClicks(sheet.focusWidget(), u"Typed"_s);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(sheet.isVisible());
    QTest::keyClick(&sheet, Qt::Key_Escape);
  }));
}

TEST_F(SheetTest, WhatIsOpenAlreadyComesForward) {
  for (const Kind& kind : kinds()) {
    during(kind.open, [&](QDialog& sheet) {
      sheet.setWindowState(Qt::WindowMinimized);
      EXPECT_FALSE(kind.open());
      EXPECT_FALSE(sheet.isMinimized()) << kind.form;
    });
  }
}

TEST_F(SheetTest, AnEndOfTheProgramEndsTheSheetWithoutAQuestion) {
  bool confirmed = true;
  QTimer::singleShot(0, qApp, [&] {
    const WhenModal whenUp([](QWidget& sheet) {
      QTest::keyClicks(&childOf<QLineEdit>(sheet, u"txtShortName"_s), u"Typed"_s);
      QCoreApplication::exit();
    });
    confirmed = kinds()[1].open();
  });
  QCoreApplication::exec();
  EXPECT_FALSE(confirmed);
  EXPECT_EQ(g_Project->CharByID(1)->Title(), u"Anna"_s);
}

TEST_F(SheetTest, WhatIsTypedWhenTheSystemEndsTheProgramIsKept) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.form);
    EXPECT_FALSE(during(kind.open, [&](QDialog& sheet) {
      EXPECT_FALSE(keepTypedOnSheets());
      QTest::keyClicks(sheet.focusWidget(), u"Typed"_s);
      EXPECT_TRUE(keepTypedOnSheets());
      EXPECT_EQ(kind.name(), u"Typed"_s);
      QTest::keyClick(sheet.focusWidget(), Qt::Key_Backspace);
      childOf<QLineEdit>(sheet, kind.nameField).clear();
      EXPECT_TRUE(keepTypedOnSheets());
    }));
    EXPECT_FALSE(kind.name().isEmpty());
  }
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  EXPECT_TRUE(during([] { return g_Project->EnterNewItem(); },
                     [](QDialog& sheet) {
                       type(memo(sheet, "txtDesc"), u"Found on the beach"_s);
                       EXPECT_TRUE(keepTypedOnSheets());
                       EXPECT_EQ(g_Project->ItemByIndex(2)->Title, u"Unnamed"_s);
                       type(line(sheet, "txtTitle"), u"A shell"_s);
                       QTest::keyClick(&sheet, Qt::Key_Return);
                     }));
  EXPECT_EQ(g_Project->ItemCount(), 2);
  EXPECT_EQ(g_Project->ItemByIndex(2)->Title + u' ' + g_Project->ItemByIndex(2)->DescText,
            u"A shell Found on the beach"_s);
}

TEST_F(SheetTest, TheChapterSheetTellsItsWordsAndTheDescriptionsOfItsScenes) {
  sceneAt(1)->setTextRTF(simpleRtf(QByteArray("tide ").repeated(1234)));
  sceneAt(1)->DescText = u"She comes.\r\nBy boat."_s;
  during(kinds()[0].open, [](QDialog& sheet) {
    const auto& words = line(sheet, "txtWords");
    EXPECT_TRUE(words.isReadOnly());
    EXPECT_EQ(words.text(), u"1,236"_s);
    const auto& summary = childOf<QPlainTextEdit>(sheet, u"txtSceneSummary"_s);
    EXPECT_TRUE(summary.isReadOnly());
    EXPECT_EQ(summary.toPlainText(), u"Scene: 1\nShe comes.\nBy boat.\n\nScene: 2\n"_s);
  });
  EXPECT_TRUE(during([] { return g_Project->EnterNewChapter(); },
                     [this](QDialog& sheet) {
                       EXPECT_EQ(line(sheet, "txtTitle").text() + memo(sheet, "txtDesc").Text(), QString());
                       EXPECT_EQ(line(sheet, "txtWords").text(), u"0"_s);
                       type(line(sheet, "txtTitle"), u"The end"_s);
                       type(memo(sheet, "txtDesc"), u"All is told."_s);
                       toolkit.expectFile(folder.path(u"Small.qn4"_s));
                       QTest::keyClick(&line(sheet, "txtTitle"), Qt::Key_Return);
                     }));
  EXPECT_EQ(chapterAt(4)->Title + u' ' + chapterAt(4)->DescText, u"The end All is told."_s);
}

TEST_F(SheetTest, EveryFieldOfTheCharacterComesAndGoes) {
  const auto person = g_Project->CharByID(1);
  const QString longLine = u"tag "_s.repeated(20'000);
  person->Tags = longLine;
  person->Bio = u"One\r\nTwo\u00a0Three\nFour"_s;
  g_CharChanges.ResetAllChanged(1);
  EXPECT_TRUE(during(kinds()[1].open, [](QDialog& sheet) { QTest::keyClick(&sheet, Qt::Key_Return); }));
  EXPECT_EQ(person->Tags, longLine);
  EXPECT_EQ(person->Bio, u"One\r\nTwo\u00a0Three\nFour"_s);
  EXPECT_TRUE(person->major);
  EXPECT_TRUE(g_CharChanges.HasChanged(1, ChangeArea::MainWindow));

  EXPECT_TRUE(during(kinds()[1].open, [](QDialog& sheet) {
    for (const char* name : {"txtShortName", "txtFullname", "txtAlternate", "txtTags", "txtImageFile"}) {
      line(sheet, name).setText(QString::fromLatin1(name));
    }
    for (const char* name : {"txtDesc", "txtBio", "txtGoals", "txtNotes"}) {
      memo(sheet, name).setPlainText(QString::fromLatin1(name) + u"\n2"_s);
      memo(sheet, name).document()->setModified(true);
    }
    childOf<QRadioButton>(sheet, u"optMinor"_s).click();
    childOf<QPushButton>(sheet, u"cmdOK"_s).click();
  }));
  EXPECT_EQ(QStringList({person->Title(), person->FullName, person->AlternateNames, person->Tags, person->ImageFile,
                         person->DescText, person->Bio, person->Goals, person->Notes}),
            QStringList({u"txtShortName"_s, u"txtFullname"_s, u"txtAlternate"_s, u"txtTags"_s, u"txtImageFile"_s,
                         u"txtDesc\r\n2"_s, u"txtBio\r\n2"_s, u"txtGoals\r\n2"_s, u"txtNotes\r\n2"_s}));
  EXPECT_FALSE(person->major);
}

TEST_F(SheetTest, TheKeysOfATabTurnToItAndTheKeyboardFollows) {
  during(kinds()[1].open, [](QDialog& sheet) {
    const auto& tabs = childOf<QTabWidget>(sheet, u"TabStrip1"_s);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(tabs.currentWidget()->objectName(), u"FrameData(3)"_s);
    EXPECT_TRUE(memo(sheet, "txtNotes").hasFocus());
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(line(sheet, "txtImageFile").hasFocus());
    QTest::keyClick(sheet.focusWidget(), Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(line(sheet, "txtShortName").selectedText(), u"Anna"_s);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(line(sheet, "txtFullname").hasFocus());
    QTest::mouseClick(&line(sheet, "txtShortName"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(line(sheet, "txtShortName").selectedText(), u"Anna"_s);
    QTest::mouseClick(&line(sheet, "txtShortName"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(line(sheet, "txtShortName").selectedText(), QString()) << "a second click sets the caret";
  });
}
