// The program's words among a writer's own, in another language: what is shown is translated, what is kept is not.

#include "core/infra/HelpFile.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/planning/StoryCard.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/InterfaceLanguage.h"
#include "gui/shell/windows/frmHelp.h"
#include "gui/shell/windows/frmSceneList.h"
#include "gui/toolkit/LanguageHook.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/QtToolkit.h"
#include "gui/views/ListView.h"
#include "gui/views/PrintRun.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr int kStatus = 3;
constexpr int kActionReaction = 4;

class LanguageOfListsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    QDir().mkpath(folder.path(u"Languages"_s));
    Lang().OverrideLanguagePath(folder.path());
    writeFile(
        folder.path(u"Languages/x.txt"_s),
        u"Pröbe\nDraft||Entwurf\nDone||Fertig\nAction||Handlung\nAction or reaction||Handlung oder "
        u"Folge\nDay||Handtag\nReaction||Folge\nOpen||Öffnen\n"
        "File has been changed.  Save it?||Sichern?\n%1 description||Worum es in %1 geht\n"
        "Tension||Spannung\nWds||Wörter\nScns||Szenen\nSplit scene on '%1'||Trennen bei %1\n"
        "Help||Hilfe\nCould not retrieve update status||Keine Auskunft\nGoal||Ziel\nNo Goal specified||Kein Ziel\n"_s
            .toUtf8());
    writeFile(folder.path(u"Languages/y.txt"_s),
              u"Prova\nDraft||Bozza\nAction||Mossa\nGoal||Meta\n%1 words||%1 parole\n(nobody)||(nessuno)\n"
              "Saved: %1||Messo: %1\nN/A||nessuno\n"
              "This file will be backed up to %1 at 1 minute intervals (If changes occur)||Copie in %1\n"
              "Chapter||Capitolo\nNew Scene||Nuova scena\nChapters||Capitoli\nTension||Tensione\n"_s.toUtf8());
    startWith(smallProject());
    chapterAt(1)->Title = u"Open"_s;
    sceneAt(1)->Title = u"Draft"_s;
    sceneAt(1)->Goal.clear();
    sceneAt(1)->Status = 2;
  }
  void TearDown() override {
    useLanguage(0);
    ShellTest::TearDown();
  }

  void speak(const QString& title) {
    fillLanguageMenu(window());
    EXPECT_TRUE(useLanguage(window(), title));
  }
};

/// The window of this name among those that are up.
QWidget& windowNamed(const QString& name) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name) {
      return *window;
    }
  }
  throw std::runtime_error("no window " + name.toStdString());
}

}  // namespace

TEST_F(LanguageOfListsTest, TheMainWindowShowsItsWordsAndLeavesTheWriters) {
  for (const auto& [language, status, action, about, goal] :
       {std::tuple{u"Pröbe"_s, u"Entwurf"_s, u"H"_s, u"Worum es in Open geht:"_s, u"Kein Ziel"_s},
        {u"English"_s, u"Draft"_s, u"A"_s, u"Open description:"_s, u"No Goal specified"_s}}) {
    speak(language);
    EXPECT_EQ(cell("ListChapters", 0, 0), u"Open"_s);
    EXPECT_EQ(cell("ListScenes", 0, 2), u"Draft"_s);
    EXPECT_EQ(cell("ListScenes", 0, kStatus), status);
    EXPECT_EQ(cell("ListScenes", 0, kActionReaction), action);
    const QString title = list("ListScenes").model()->headerData(kActionReaction, Qt::Horizontal).toString();
    EXPECT_TRUE(title.startsWith(action + u'/')) << title.toStdString();
    EXPECT_TRUE(control<QPlainTextEdit>("txtChapterDesc").toPlainText().startsWith(about));
    EXPECT_EQ(control<QPlainTextEdit>("txtGoal").toPlainText(), goal);
  }
}

TEST_F(LanguageOfListsTest, AStatusThatIsChosenInAnyLanguageIsTheSameNumber) {
  speak(u"Pröbe"_s);
  g_Project->setFieldTitle(2, u"Tension"_s);
  sceneAt(1)->Edit();
  auto& editor = openEditor();
  auto& status = childOf<QComboBox>(editor, u"cmbStatus"_s);
  EXPECT_EQ(status.currentText(), u"Entwurf"_s);
  EXPECT_EQ(childOf<QLabel>(editor, u"lblFieldTitle(1)"_s).text(), u"Spannung:"_s);
  EXPECT_EQ(g_Project->FieldTitle(2), u"Tension"_s) << "is stored as it was";
  status.setCurrentIndex(status.findText(u"Fertig"_s));
  Q_EMIT status.activated(status.currentIndex());
  childOf<QPushButton>(editor, u"cmdSave"_s).click();
  EXPECT_EQ(sceneAt(1)->Status, 5);
  frmSceneList all;
  QSignalSpy wanted(&all, &frmSceneList::statusWanted);
  auto& choice = childOf<QComboBox>(all, u"cmbStatus"_s);
  const QAbstractItemModel& columns = *childOf<QTreeView>(all, u"ListView1"_s).model();
  QStringList titles;
  for (int column = 0; column < columns.columnCount(); ++column) {
    titles.append(columns.headerData(column, Qt::Horizontal).toString());
  }
  EXPECT_TRUE(titles.contains(u"Handl"_s) && titles.contains(u"Handt"_s)) << titles.join(u' ');
  EXPECT_EQ(titles.removeDuplicates(), 0);
  all.SelectScene(sceneAt(1)->ID());
  choice.setCurrentIndex(choice.findText(u"Entwurf"_s));
  childOf<QPushButton>(all, u"cmdChangeSelected"_s).click();
  ASSERT_EQ(wanted.size(), 1);
  EXPECT_EQ(wanted.constFirst().at(1).toInt(), 2);
}

TEST_F(LanguageOfListsTest, OpenWindowsGoFromOneLanguageToTheNext) {
  sceneAt(1)->Edit();
  auto& editor = openEditor();
  childOf<QPushButton>(editor, u"cmdSave"_s).click();
  QLabel& saved = childOf<QLabel>(editor, u"StatusBar1(1)"_s);
  const QString time = saved.text().section(u' ', 1);
  frmSceneList all;
  frmStoryboard board;
  board.show();
  for (const auto& [language, status, action, goal, words, nobody] :
       {std::tuple{u"Pröbe"_s, u"Entwurf"_s, u"Handlung"_s, u"Ziel"_s, u" words"_s, u"(nobody)"_s},
        {u"Prova"_s, u"Bozza"_s, u"Mossa"_s, u"Meta"_s, u" parole"_s, u"(nessuno)"_s},
        {u"English"_s, u"Draft"_s, u"Action"_s, u"Goal"_s, u" words"_s, u"(nobody)"_s}}) {
    speak(language);
    SCOPED_TRACE(language.toStdString());
    EXPECT_EQ(childOf<QComboBox>(editor, u"cmbStatus"_s).currentText(), status);
    EXPECT_EQ(childOf<QComboBox>(editor, u"cmbAction"_s).currentText(), action);
    EXPECT_EQ(childOf<QComboBox>(editor, u"cmbViewpoint"_s).placeholderText(), nobody);
    EXPECT_EQ(childOf<QLabel>(editor, u"lblGoal(0)"_s).text(), goal);
    EXPECT_EQ(saved.text(), (language == u"Prova"_s ? u"Messo: "_s : u"Saved: "_s) + time);
    const QString place = childOf<QWidget>(editor, u"StatusBar1"_s).toolTip();
    EXPECT_EQ(place.contains(u"Copie in"_s), language == u"Prova"_s) << place.toStdString();
    EXPECT_EQ(cell("ListScenes", 1, 0), language == u"Prova"_s ? u"nessuno"_s : u"N/A"_s);
    const QAbstractItemModel& rows = *childOf<ListView>(all, u"ListView1"_s).model();
    EXPECT_EQ(rows.index(0, 1).data(), status);
    EXPECT_EQ(childOf<QComboBox>(all, u"cmbStatus"_s).itemText(1), status);
    EXPECT_TRUE(board.findChild<StoryCard*>()->toolTip().endsWith(words));
  }
}

// The longer titles of a language are seen whole and take their room from the column that can spare it.
TEST_F(LanguageOfListsTest, ColumnsMakeRoomForTheirTitlesAndGetItBack) {
  ListView& chapters = list("ListChapters");
  frmSceneList all;
  all.show();
  auto& scenes = childOf<ListView>(all, u"ListView1"_s);
  for (const bool byHand : {false, true}) {
    SCOPED_TRACE(byHand);
    chapters.setColumnWidth(1, chapters.columnWidth(1) + (byHand ? 1 : 0));
    const auto widths = [&chapters] {
      QList<int> found;
      for (int column = 0; column < chapters.model()->columnCount(); ++column) {
        found.append(chapters.columnWidth(column));
      }
      return found;
    };
    const QList<int> before = widths();
    const int length = chapters.header()->length();
    speak(u"Pröbe"_s);
    EXPECT_GT(chapters.columnWidth(1), before.at(1));
    EXPECT_LT(chapters.columnWidth(0), before.at(0));
    EXPECT_LE(chapters.header()->length(), length) << chapters.roomForColumns();
    for (ListView* const view : {&chapters, &scenes}) {
      for (int column = 1; column < view->model()->columnCount(); ++column) {
        EXPECT_GE(view->columnWidth(column), view->header()->sectionSizeHint(column)) << column;
      }
    }
    speak(u"English"_s);
    EXPECT_EQ(widths(), before);
  }
}

TEST_F(LanguageOfListsTest, WhatWindowsSayOfThemselvesFollows) {
  Settings().sSet(u"UpdateAddress"_s, u"http://127.0.0.1:9"_s);
  speak(u"Pröbe"_s);
  trigger("mnuCheckVersion");
  speak(u"English"_s);
  const QString manual = Paths::programFolder() + u"Help"_s;
  QDir().rmdir(manual);
  ASSERT_TRUE(QFile::link(QStringLiteral(QUILLANE_SOURCE_DIR "/docs/manual/"), manual));
  const auto away = qScopeGuard([&manual] { QFile::remove(manual); });
  ASSERT_TRUE(frmHelp::open(HelpFile::address()));
  const auto& help = dynamic_cast<const frmHelp&>(windowNamed(u"frmHelp"_s));
  const auto closed = qScopeGuard([&help] { delete &help; });
  sceneAt(1)->Edit();
  auto& split = childOf<QAction>(openEditor(), u"mnuSplitScene(0)"_s);
  for (const auto& [language, status, title, entry] :
       {std::tuple{u"Pröbe"_s, u"Keine Auskunft"_s, u"Hilfe - "_s, u"Trennen bei * * *"_s},
        {u"English"_s, u"Could not retrieve update status"_s, u"Help - "_s, u"Split scene on '* * *'"_s}}) {
    speak(language);
    const QString said = childOf<QLabel>(window(), u"lblUpdate"_s).text();
    EXPECT_TRUE(said.startsWith(status)) << said.toStdString();
    EXPECT_TRUE(help.windowTitle().startsWith(title)) << help.windowTitle().toStdString();
    EXPECT_EQ(withoutMnemonic(split.text()), entry);
  }
}

// They become the writer's own, and the commands that go by such a name know it in both languages.
TEST_F(LanguageOfListsTest, WhatTheProgramNamesIsNamedInItsLanguage) {
  speak(u"Prova"_s);
  toolkit.expectFile(u"2"_s);
  trigger("mnuCreateChapters");
  chapterAt(1)->Title = u"Prologo"_s;
  chapterAt(2)->Title = u"Chapter 7"_s;
  const auto titles = [] {
    QStringList found;
    for (const auto& chapter : g_Project->Chapters) {
      found.append(chapter->Title);
    }
    return found;
  };
  EXPECT_EQ(titles().last().section(u' ', 0, 0), u"Capitolo"_s);
  chapterAt(3)->Title = u"il capitolo terzo"_s;
  trigger("mnuRenumber");
  EXPECT_EQ(titles(), (QStringList{u"Prologo"_s, u"Chapter 1"_s, u"Capitolo 2"_s, u"Capitolo 3"_s, u"Capitolo 4"_s}));
  click(list("ListChapters"), 0);
  toolkit.expectFile(u"1"_s);
  trigger("mnuAddMultiScenes");
  EXPECT_EQ(cell("ListScenes", list("ListScenes").model()->rowCount() - 1, 2), u"Nuova scena 1"_s);
  EXPECT_EQ(printFileName(u"Chapters"_s), g_Project->Title + u" - Capitoli"_s);
}

TEST_F(LanguageOfListsTest, ATitleOnALineOfItsOwnStaysInABox) {
  speak(u"Pröbe"_s);
  QtToolkit screen;
  const WhenModal look([](QWidget& box) {
    EXPECT_EQ(childOf<QLabel>(box, u"qt_msgbox_label"_s).text(), u"Sichern?\n\nOpen..."_s);
    box.close();
  });
  screen.MsgBox(translated(u"File has been changed.  Save it?"_s) + u"\n\nOpen..."_s, Buttons::YesNoOrBack);
}
