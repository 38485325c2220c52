// Spell checking in the editor: when it runs, what it marks, what its menu and the pop-up of a word do, and how a
// dictionary is installed.

#include "core/infra/HelperLibrary.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/spell/SpellFiles.h"
#include "core/spell/WordListArchive.h"
#include "core/spell/cSharedSpell.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/TextMarkLayer.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/WaitFor.h"
#include "support/WebServer.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class EditorSpellingTest : public EditorTest {
 protected:
  void SetUp() override {
    for (const char* const library : kHelperLibraries) {
      const QString name = QString::fromLatin1(library);
      QFile::link(QCoreApplication::applicationDirPath() + u'/' + name, program.path(name));
    }
    put(program.path(u"Dict/2of12.txt"_s), "dog\r\ndogs\r\none\r\ntwo\r\nthree\r\n");
    EditorTest::SetUp();
    Spell() = cSharedSpell();
  }
  void TearDown() override {
    EditorTest::TearDown();
    Spell() = cSharedSpell();
    WordListArchive::overrideAddress({});
  }

  frmEditor& openWith(const QString& text) {
    scene()->setTextRTF(writeRtf(RichText::fromPlain(text)));
    frmEditor& editor = required(open(), u"editor"_s);
    pane_ = &control<RichTextBox>(editor, "txtMain");
    return editor;
  }
  /// The text with each misspelled word in brackets.
  QString marked() const {
    QString text = pane_->Text();
    const TextMarks marks = required(pane_->findChild<TextMarkLayer*>(), u"marks"_s).marks();
    for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
      text.insert(mark->end(), u']').insert(mark->start, u'[');
    }
    return text;
  }
  static void fire(frmEditor& editor) { childOf<QTimer>(editor, u"TimerFirstSpellCheck"_s).start(0); }
  /// Which entries of the menu are there, by the first letters of their captions.
  QString offered(frmEditor& editor) {
    QString letters;
    for (const char* const name : {"mnuClear", "mnuSpellingOn", "mnuCheckNow", "mnuInstallDictionary"}) {
      const auto& entry = control<QAction>(editor, name);
      letters += entry.isVisible() ? QString(entry.text()).remove(u'&').left(2) : QString();
    }
    return letters;
  }
  /// Right-clicks a place of the text; the pop-up is gone when this returns. Whether it offered to add a word.
  bool rightClick(frmEditor& editor, qsizetype at) {
    QTextCursor cursor = pane_->textCursor();
    cursor.setPosition(static_cast<int>(at));
    const QPoint spot = pane_->cursorRect(cursor).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, spot, pane_->viewport()->mapToGlobal(spot));
    QCoreApplication::sendEvent(pane_->viewport(), &event);
    control<QMenu>(editor, "mnuRightClick").close();
    const bool offers = control<QAction>(editor, "mnuAddWordToCustom").isVisible();
    EXPECT_EQ(control<QAction>(editor, "pbarSpell").isVisible(), offers);
    return offers;
  }
  void install(frmEditor& editor, const QString& address, const QString& outcome, const QString& choice = {}) {
    WordListArchive::overrideAddress(address);
    toolkit.expectBox(u"This will download the dictionary and unpack it. Are you sure? (Approx 1.4mb)"_s, Answer::Yes);
    if (!choice.isEmpty()) {
      toolkit.expectChoice(u"Could not download the dictionary."_s, choice);
    }
    toolkit.expectBox(outcome);
    const qsizetype boxes = toolkit.boxes.size();
    trigger(editor, "mnuInstallDictionary");
    EXPECT_TRUE(waitFor([&] { return toolkit.boxes.size() == boxes + 2; }));
  }
  QByteArray archiveOf(const QString& member, const QByteArray& content) {
    put(folder.path(u"lists/"_s + member), content);
    cSHAREDZipFiles zip;
    zip.ZipFileName = folder.path(u"lists.zip"_s);
    zip.AddFile(folder.path(u"lists/"_s + member));
    zip.MakeZipFile();
    const QByteArray bytes = contentOf(zip.ZipFileName);
    QFile::remove(zip.ZipFileName);
    return bytes;
  }

  ProgramFolder program;
  RichTextBox* pane_ = nullptr;
};

TEST_F(EditorSpellingTest, CheckNowMarksWhatNoListHoldsAndTouchesNothing) {
  for (const QString& expected :
       {u"Dog's dogs' 12 3/4/2005 [na]ï[ve] dog, [dgo]!"_s, u"[Teh] dog\r\n[teh] dogs"_s, u"one two three"_s}) {
    frmEditor& editor = openWith(QString(expected).remove(u'[').remove(u']'));
    pane_->select(1, 2);
    trigger(editor, "mnuCheckNow");
    EXPECT_EQ(marked(), expected);
    EXPECT_FALSE(editor.isWindowModified() || pane_->isEdited());
    EXPECT_EQ(pane_->SelLength(), 2);
    const QByteArray before = scene()->TextRTF();
    trigger(editor, "mnuSaveAndExit");
    EXPECT_EQ(scene()->TextRTF(), before);
    deleteUnloaded();
  }
}

TEST_F(EditorSpellingTest, ASceneIsCheckedAMomentAfterItWasOpenedAndTheListsAreReadThen) {
  for (const bool on : {true, false}) {
    Settings().sSet(u"AutoSpell"_s, on);
    Spell() = cSharedSpell();
    // Not a moment is waited for before it is looked at.
    scene()->setTextRTF(writeRtf(RichText::fromPlain(u"dog dgo"_s)));
    scene()->Edit();
    frmEditor& editor = required(editorWindows().value(0), u"editor"_s);
    pane_ = &control<RichTextBox>(editor, "txtMain");
    const auto& timer = childOf<QTimer>(editor, u"TimerFirstSpellCheck"_s);
    EXPECT_TRUE(timer.isActive() && timer.isSingleShot());
    EXPECT_EQ(timer.interval(), 1500);
    EXPECT_FALSE(Spell().Initialised());
    fire(editor);
    EXPECT_TRUE(waitFor([&] { return !timer.isActive() && (!on || Spell().Available()); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(marked(), on ? u"dog [dgo]"_s : u"dog dgo"_s);
    EXPECT_EQ(Spell().Initialised(), on);
    editor.close();
    deleteUnloaded();
  }
}

TEST_F(EditorSpellingTest, ASaveChecksWhereCheckingIsOnAndTypingDoesNot) {
  frmEditor& editor = openWith(u"dog"_s);
  Spell().InitDict();
  type(editor, u" dgo"_s);
  EXPECT_EQ(marked(), u"dog dgo"_s);
  trigger(editor, "mnuSave");
  EXPECT_EQ(marked(), u"dog dgo"_s);
  trigger(editor, "mnuSpellingOn");
  EXPECT_TRUE(Settings().sGet(u"AutoSpell"_s).toBool());
  trigger(editor, "mnuSave");
  EXPECT_EQ(marked(), u"dog [dgo]"_s);
  trigger(editor, "mnuClear");
  EXPECT_EQ(marked(), u"dog dgo"_s);
  click(editor, "cmdSave");
  EXPECT_EQ(marked(), u"dog [dgo]"_s);
  trigger(editor, "mnuSpellingOn");
  EXPECT_FALSE(Settings().sGet(u"AutoSpell"_s).toBool());
  EXPECT_EQ(textInFile(), u"dog dgo"_s);
}

TEST_F(EditorSpellingTest, ANameGoesOverAMisspellingAndStaysWhenTheCheckIsCleared) {
  Settings().sSet(u"HighlightChar"_s, true);
  frmEditor& editor = openWith(u"Zoë’s Annabel Zoëz"_s);
  EXPECT_EQ(marked(), u"[Zoë]’s [Anna]bel [Zoë]z"_s);
  trigger(editor, "mnuCheckNow");
  EXPECT_EQ(marked(), u"[Zoë]’s [Anna][bel] [Zoë][z]"_s);
  EXPECT_FALSE(rightClick(editor, 1)) << "it is no misspelling";
  EXPECT_TRUE(rightClick(editor, 11));
  trigger(editor, "mnuAddWordToCustom");
  EXPECT_EQ(marked(), u"[Zoë]’s [Anna]bel [Zoë][z]"_s);
  trigger(editor, "mnuClear");
  EXPECT_EQ(marked(), u"[Zoë]’s [Anna]bel [Zoë]z"_s);
}

TEST_F(EditorSpellingTest, ARightClickOnAMisspelledWordOffersToAddIt) {
  frmEditor& editor = openWith(u"dog “dgo,” teh dog teh"_s);
  EXPECT_FALSE(rightClick(editor, 6)) << "nothing was checked yet";
  trigger(editor, "mnuCheckNow");
  EXPECT_FALSE(rightClick(editor, 1));
  EXPECT_EQ(pane_->SelText(), QString());
  EXPECT_TRUE(rightClick(editor, 12));
  EXPECT_EQ(pane_->SelText(), u"teh"_s);
  trigger(editor, "mnuAddWordToCustom");
  EXPECT_EQ(marked(), u"dog “[dgo],” teh dog teh"_s);
  EXPECT_EQ(contentOf(program.path(u"Dict/Custom.txt"_s)), "teh\r\n");
  EXPECT_TRUE(rightClick(editor, 6));
  trigger(editor, "mnuAddWordToCustom");
  EXPECT_EQ(marked(), u"dog “dgo,” teh dog teh"_s);
  EXPECT_FALSE(editor.isWindowModified());
}

TEST_F(EditorSpellingTest, AWordThatCannotBeKeptIsRightForThisRunAndThatIsTold) {
  frmEditor& editor = openWith(u"dgo"_s);
  trigger(editor, "mnuCheckNow");
  QDir().mkpath(program.path(u"Dict/Custom.txt"_s));
  EXPECT_TRUE(rightClick(editor, 1));
  toolkit.expectBox(u"could not be written to your custom dictionary"_s);
  trigger(editor, "mnuAddWordToCustom");
  EXPECT_EQ(marked(), u"dgo"_s);
}

TEST_F(EditorSpellingTest, TheMenuOffersWhatThereIsADictionaryFor) {
  frmEditor& editor = openWith(u"dog"_s);
  EXPECT_EQ(offered(editor), u"ClSpCh"_s);
  QFile::remove(program.path(u"Dict/2of12.txt"_s));
  put(program.path(u"Dict/Custom.txt"_s), "dog\r\n");
  control<QMenu>(editor, "mnuSpelling").popup({});
  control<QMenu>(editor, "mnuSpelling").close();
  EXPECT_EQ(offered(editor), u"In"_s) << "the custom list alone is no dictionary";
}

TEST_F(EditorSpellingTest, ADictionaryIsInstalledFromTheWeb) {
  QFile::remove(program.path(u"Dict/2of12.txt"_s));
  QDir().rmdir(program.path(u"Dict"_s));
  const WebServer server({{u"/12dicts-5.0.zip"_s, WebServer::ok(archiveOf(u"5desk.txt"_s, "dog\r\n"))},
                          {u"/page.zip"_s, WebServer::ok("<html>Gone</html>")},
                          {u"/other.zip"_s, WebServer::ok(archiveOf(u"readme.txt"_s, "Read me"))},
                          {u"http://lists.invalid/other.zip"_s, WebServer::ok(archiveOf(u"read.txt"_s, "Read"))},
                          {u"/gone.zip"_s, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"}});
  Settings().sSet(u"AutoSpell"_s, true);
  frmEditor& editor = openWith(u"dog dgo"_s);
  QTest::keyClicks(&control<QLineEdit>(editor, "txtTitle"), u"Typed: "_s);
  const QString caption = editor.windowTitle();
  toolkit.expectBox(u"This will download"_s, Answer::No);
  trigger(editor, "mnuInstallDictionary");
  WordListArchive::overrideAddress(server.address(u"/gone.zip"_s));
  toolkit.expectBox(u"This will download"_s, Answer::Yes);
  toolkit.expectChoice(u"Could not download the dictionary."_s, u"Try again"_s);
  toolkit.expectChoice(u"Could not download the dictionary."_s, {});
  trigger(editor, "mnuInstallDictionary");
  EXPECT_TRUE(waitFor([&] { return toolkit.choices.size() == 2 && editor.windowTitle() == caption; }));
  {
    const WhenModal proxy([&](QWidget& form) {
      childOf<QRadioButton>(form, u"optNamed"_s).setChecked(true);
      childOf<QLineEdit>(form, u"txtServer"_s).setText(u"127.0.0.1"_s);
      childOf<QLineEdit>(form, u"txtPort"_s).setText(server.address({}).section(u':', -1));
      QTest::keyClick(&form, Qt::Key_Return);
    });
    install(editor, u"http://lists.invalid/other.zip"_s, u"Dictionary NOT installed."_s, u"Proxy settings..."_s);
  }
  Settings().sSet(u"ProxyType"_s, 1);
  install(editor, server.address(u"/page.zip"_s), u"Could not unpack the dictionary. Bad download?"_s);
  install(editor, server.address(u"/other.zip"_s), u"Dictionary NOT installed."_s);
  EXPECT_TRUE(waitFor([&] { return editor.windowTitle() == caption; }));
  EXPECT_EQ(offered(editor), u"In"_s);
  EXPECT_EQ(marked(), u"dog dgo"_s);
  install(editor, server.address(u"/12dicts-5.0.zip"_s), u"Dictionary installed. Spell check enabled."_s);
  EXPECT_TRUE(waitFor([&] { return offered(editor) == u"ClSpCh"_s; }));
  EXPECT_EQ(marked(), u"dog [dgo]"_s);
  EXPECT_TRUE(QFileInfo::exists(program.path(u"12dicts-5.0.zip"_s)));
}

TEST_F(EditorSpellingTest, ClosingTheWindowCancelsTheDownload) {
  QFile::remove(program.path(u"Dict/2of12.txt"_s));
  const WebServer server({});
  const QPointer<frmEditor> editor = &openWith(u"dog"_s);
  WordListArchive::overrideAddress(server.address(u"/silent.zip"_s));
  toolkit.expectBox(u"This will download"_s, Answer::Yes);
  bool closed = false;
  toolkit.onYield = [&] {
    editor->close();
    deleteUnloaded();
    closed = true;
  };
  trigger(*editor, "mnuInstallDictionary");
  EXPECT_TRUE(waitFor([&] { return closed && !editor; }));
  EXPECT_FALSE(QFileInfo::exists(program.path(u"silent.zip"_s)));
}

}  // namespace
