// The notes of the project: looked at, edited, kept through whatever else happens meanwhile.

#include "core/model/Globals.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/Colours.h"
#include "support/SampleProject.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

class NotesPaneTest : public ShellTest {
 protected:
  /// Three notes: "To do" of the small project, "Weather" and "Names".
  void SetUp() override {
    ShellTest::SetUp();
    path_ = smallProject();
    startWith(path_);
    for (const QString& title : {u"Weather"_s, u"Names"_s}) {
      const auto note = std::make_shared<clsNote>();
      note->Title = title;
      note->DescText = u"About "_s + title;
      g_Project->AddNote(note);
    }
    window().SaveProject(false);
    window().RefreshAll();
    control<QTabWidget>("TabStrip2").setCurrentIndex(1);
    notes().setFocus();
  }

  ListView& notes() { return list("ListNotes"); }
  QLineEdit& title() { return control<QLineEdit>("txtNoteTitle"); }
  QPlainTextEdit& text() { return control<QPlainTextEdit>("txtNoteEditor"); }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }
  void press(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
  QString caption() { return control<QTabWidget>("TabStrip2").tabText(1); }
  bool isEditing() { return caption() == u"Notes *"_s; }

  /// Begins to edit the row and types in front of what it holds.
  void typeInto(int row, const QString& typed) {
    click(notes(), row);
    press("cmdEdit");
    QTest::keyClicks(&text(), typed);
  }
  QString shown() { return title().text() + u": "_s + text().toPlainText(); }
  /// All notes of the book, as they stand in it.
  static QStringList inBook() {
    QStringList all;
    for (const auto& note : g_Project->Notes) {
      all.append(note->Title + u": "_s + note->DescText);
    }
    return all;
  }
  /// The field for a label; null when none is open.
  QLineEdit* fieldInRow() {
    for (auto* const field : notes().viewport()->findChildren<QLineEdit*>()) {
      if (field->isVisible()) {
        return field;
      }
    }
    return nullptr;
  }

  const QStringList kAll{u"To do: Line one\r\nLine two"_s, u"Weather: About Weather"_s, u"Names: About Names"_s};
  QString path_;
};

TEST_F(NotesPaneTest, LockedFieldsFollowTheDesktopAndTheirHintReads) {
  for (const QRgb ground : {0x31363bU, 0xefefefU}) {
    SCOPED_TRACE(ground);
    window().setPalette(QPalette(QColor(ground)));
    const QWidget& page = *text().viewport();
    const QColor behind = page.palette().color(page.backgroundRole());
    EXPECT_EQ(title().palette().color(QPalette::Base), behind);
    EXPECT_GE(Colours::contrast(text().palette().color(QPalette::PlaceholderText), behind), Colours::kEnoughContrast);
  }
}

TEST_F(NotesPaneTest, WhatIsSavedGoesIntoTheBook) {
  press("cmdNew");
  QTest::keyClicks(&title(), u"Plan & more"_s);
  QTest::keyClick(&title(), Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), u"First"_s);
  QTest::keyClick(&text(), Qt::Key_Return);
  QTest::keyClicks(&text(), u"second"_s);
  EXPECT_EQ(inBook(), kAll);
  EXPECT_FALSE(window().ProjectChanged);
  press("cmdSave");
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_EQ(inBook(), kAll + QStringList{u"Plan & more: First\r\nsecond"_s});
  EXPECT_EQ(notes().SelectedTags(), QList<qint32>{4});
  EXPECT_EQ(row("ListNotes", 3), QStringList{u"Plan & more"_s});

  typeInto(0, u"Again. "_s);
  title().setText(u"Done\nat last"_s);
  press("cmdSave");
  EXPECT_EQ(inBook().constFirst(), u"Done at last: Again. Line one\r\nLine two"_s);
  EXPECT_EQ(row("ListNotes", 0), QStringList{u"Done at last"_s});
  EXPECT_EQ(notes().SelectedTags(), QList<qint32>{1});
  EXPECT_TRUE(fileBytes(path_).contains("Again.%20Line%20one")) << "the button's name is kept to";
}

TEST_F(NotesPaneTest, WhoeverSavesTheBookSavesTheNoteThatIsBeingWritten) {
  typeInto(0, u"Half a thou"_s);
  window().SaveProject(false);
  EXPECT_TRUE(fileBytes(path_).contains("Half%20a%20thouLine%20one"));
  EXPECT_TRUE(isEditing());
  QTest::keyClicks(&text(), u"ght"_s);
  toolkit.expectChoice(u"The note 'To do' isn't saved."_s, u"Discard"_s);
  window().session().CloseProject();
  EXPECT_FALSE(fileBytes(path_).contains("thought"));
}

TEST_F(NotesPaneTest, WhatWasNotTypedStaysAsTheFileHadIt) {
  g_Project->NoteByID(2)->Title = u"Two\r\nlines"_s;
  g_Project->NoteByID(2)->DescText = u"a\nb\rc\r\n"_s;
  window().RefreshAll();
  typeInto(1, u"x"_s);
  press("cmdDiscard");
  press("cmdEdit");
  press("cmdSave");
  EXPECT_EQ(inBook().at(1), u"Two\r\nlines: a\nb\rc\r\n"_s);
}

TEST_F(NotesPaneTest, ALabelIsEditedInItsRow) {
  QTest::keyClick(&notes(), Qt::Key_F2);
  ASSERT_NE(fieldInRow(), nullptr);
  EXPECT_FALSE(fieldInRow()->accessibleName().isEmpty());
  QTest::keyClicks(fieldInRow(), u"Errands"_s);
  QTest::keyClick(fieldInRow(), Qt::Key_Return);
  EXPECT_TRUE(soon([this] { return fieldInRow() == nullptr; }));
  EXPECT_EQ(inBook().constFirst(), u"Errands: Line one\r\nLine two"_s);
  EXPECT_EQ(row("ListNotes", 0), QStringList{u"Errands"_s});
  EXPECT_EQ(title().text(), u"Errands"_s);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_FALSE(isEditing()) << "Enter was for the label";

  // What is being typed there is taken before anything else is done with the notes.
  const auto typeLabel = [this](const QString& label) {
    QTest::keyClick(&notes(), Qt::Key_F2);
    QTest::keyClicks(fieldInRow(), label);
  };
  typeLabel(u"One"_s);
  window().RefreshAll();
  EXPECT_EQ(inBook().constFirst(), u"One: Line one\r\nLine two"_s);
  typeLabel(u"Two"_s);
  button("cmdNew").click();
  EXPECT_EQ(shown(), u"New Note: "_s);
  press("cmdDiscard");
  EXPECT_EQ(shown(), u"Two: Line one\nLine two"_s);
  typeLabel(u"By Edit"_s);
  button("cmdEdit").click();
  press("cmdSave");
  EXPECT_EQ(inBook().constFirst(), u"By Edit: Line one\r\nLine two"_s);
  typeLabel(u"Three"_s);
  trigger("mnuCloseProject");
  EXPECT_TRUE(fileBytes(path_).contains("<Title>Three</Title>"));
}

TEST_F(NotesPaneTest, DeleteTakesAllSelectedNotesOnceThatIsConfirmed) {
  click(notes(), 2);
  click(notes(), 1, Qt::ControlModifier);
  EXPECT_EQ(shown(), u"Weather: About Weather"_s) << "the first of them";
  toolkit.expectBox(u"Delete selected note(s)?"_s, Answer::No);
  QTest::keyClick(&notes(), Qt::Key_Delete);
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes);
  EXPECT_EQ(inBook(), kAll);
  EXPECT_FALSE(window().ProjectChanged);
  toolkit.expectBox(u"Delete selected note(s)?"_s, Answer::Yes);
  QTest::keyClick(&notes(), Qt::Key_Delete);
  EXPECT_EQ(inBook(), kAll.first(1));
  EXPECT_EQ(shown(), u"To do: Line one\nLine two"_s);
  EXPECT_TRUE(window().ProjectChanged);
  notes().clearSelection();
  QTest::keyClick(&notes(), Qt::Key_Delete);
  EXPECT_EQ(inBook(), kAll.first(1));
}

TEST_F(NotesPaneTest, ARefreshKeepsTheSelectionAndWhatIsTyped) {
  click(notes(), 1);
  g_Project->RemoveNoteByID(3);
  window().RefreshAll();
  EXPECT_EQ(shown(), u"Weather: About Weather"_s);
  typeInto(1, u"Mine. "_s);
  g_Project->RemoveNoteByID(2);
  window().RefreshAll();
  EXPECT_TRUE(isEditing());
  EXPECT_EQ(notes().rowCount(), 1);
  EXPECT_EQ(shown(), u"Weather: Mine. About Weather"_s);
  press("cmdSave");
  EXPECT_EQ(inBook(), QStringList({kAll[0], u"Weather: Mine. About Weather"_s}));
}

TEST_F(NotesPaneTest, WhatIsTypedGoesOverNoNoteThatAnotherHandHasWritten) {
  const QByteArray saved = fileBytes(path_);
  for (const bool changed : {false, true}) {
    SCOPED_TRACE(changed);
    writeFile(path_, saved);
    window().LoadProject(path_, false);
    typeInto(1, u"Mine. "_s);
    writeFile(path_, changed ? QByteArray(saved).replace("About%20Weather", "Theirs") : saved);
    window().LoadProject(path_, false);
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(shown(), u"Weather: Mine. About Weather"_s);
    press("cmdSave");
    const QString mine = u"Weather: Mine. About Weather"_s;
    EXPECT_EQ(inBook(), changed ? QStringList({kAll[0], u"Weather: Theirs"_s, kAll[2], mine})
                                : QStringList({kAll[0], mine, kAll[2]}));
  }
  // A note that has gone leaves its words behind.
  typeInto(2, u"Mine. "_s);
  g_Project->RemoveNoteByID(3);
  press("cmdSave");
  EXPECT_TRUE(inBook().contains(u"Names: Mine. About Names"_s));
}

TEST_F(NotesPaneTest, LeavingAsksAboutWhatIsTyped) {
  struct Way {
    const char* entry;
    bool ends;
  };
  for (const Way& way : {Way{"mnuConfirmExit", true}, {"mnuCloseProject", false}, {"mnuRecent(1)", false}}) {
    SCOPED_TRACE(way.entry);
    start(path_);
    control<QTabWidget>("TabStrip2").setCurrentIndex(1);
    const auto leave = [&] {
      control<QTabWidget>("TabStrip2").setCurrentIndex(0);
      trigger(way.entry);
    };
    typeInto(1, u"Mine. "_s);
    toolkit.expectChoice(u"The note 'Weather' isn't saved."_s, {});
    leave();
    EXPECT_EQ(std::exchange(ended, 0), 0);
    EXPECT_TRUE(text().isVisible()) << "what was asked about is shown";
    EXPECT_EQ(shown(), u"Weather: Mine. About Weather"_s);
    toolkit.expectChoice(u"isn't saved"_s, u"Discard"_s);
    leave();
    EXPECT_EQ(std::exchange(ended, 0), int(way.ends));
    EXPECT_FALSE(fileBytes(path_).contains("Mine."));

    start(path_);
    control<QTabWidget>("TabStrip2").setCurrentIndex(1);
    typeInto(1, u"Mine. "_s);
    toolkit.expectChoice(u"isn't saved"_s, u"Save"_s);
    leave();
    EXPECT_EQ(std::exchange(ended, 0), int(way.ends));
    EXPECT_EQ(fileBytes(path_).count("Mine."), 1);
    writeFile(path_, fileBytes(path_).replace("Mine.%20", ""));

    // Where nothing was typed nothing is asked.
    start(path_);
    control<QTabWidget>("TabStrip2").setCurrentIndex(1);
    press("cmdNew");
    leave();
    EXPECT_EQ(std::exchange(ended, 0), int(way.ends));
  }
}

TEST_F(NotesPaneTest, TheEndOfTheSessionSavesWhatIsTypedAndAsksNothing) {
  typeInto(1, u"Mine. "_s);
  window().SaveAtOnce();
  EXPECT_EQ(fileBytes(path_).count("Mine."), 1);
  EXPECT_TRUE(isEditing()) << "the session may go on";
  press("cmdDiscard");
  press("cmdNew");
  QTest::keyClicks(&text(), u"Of mine"_s);
  window().SaveAtOnce();
  // At the question whether it is to be saved.
  toolkit.expectChoice(u"isn't saved"_s, u"Discard"_s);
  toolkit.onChoice = [this] { window().EndAtOnce(); };
  const int progress = toolkit.progressWindowsMade;
  trigger("mnuConfirmExit");
  EXPECT_TRUE(soon([this] { return ended == 1; }));
  EXPECT_EQ(toolkit.progressWindowsMade, progress) << "the end that was being asked about is none any more";
  EXPECT_EQ(fileBytes(path_).count("Of%20mine"), 1);
  EXPECT_EQ(inBook().size(), 4);
}

TEST_F(NotesPaneTest, EscapeThrowsNothingAwayUnasked) {
  press("cmdNew");
  QTest::keyClick(&title(), Qt::Key_Escape);
  EXPECT_FALSE(isEditing());
  typeInto(1, u"Mine. "_s);
  toolkit.expectChoice(u"The note 'Weather' isn't saved."_s, {});
  QTest::keyClick(&text(), Qt::Key_Escape);
  EXPECT_EQ(shown(), u"Weather: Mine. About Weather"_s);
  press("cmdDiscard");
  EXPECT_EQ(shown(), u"Weather: About Weather"_s);
}

TEST_F(NotesPaneTest, TheKeyboardAloneDoesIt) {
  const auto walk = [](QWidget& from) {
    QStringList walked;
    from.setFocus();
    for (int step = 0; step < 4; ++step) {
      walked.append(QApplication::focusWidget()->objectName());
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return walked;
  };
  EXPECT_EQ(walk(notes()), QStringList({u"ListNotes"_s, u"cmdNew"_s, u"cmdEdit"_s, u"txtNoteTitle"_s}));
  QTest::keyClick(&window(), Qt::Key_W, Qt::AltModifier);
  ASSERT_TRUE(soon([this] { return isEditing(); }));
  EXPECT_EQ(QApplication::focusWidget(), &title());
  EXPECT_EQ(walk(title()), QStringList({u"txtNoteTitle"_s, u"txtNoteEditor"_s, u"cmdSave"_s, u"cmdDiscard"_s}));
  text().setFocus();
  QTest::keyClick(&window(), Qt::Key_V, Qt::AltModifier);
  ASSERT_TRUE(soon([this] { return !isEditing(); }));
  EXPECT_EQ(QApplication::focusWidget(), &notes());
}
