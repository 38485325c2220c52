// The window of the project's settings by itself: what it shows, what it gives back, and what it asks.

#include "gui/shell/windows/frmEditProject.h"

#include "core/infra/Clock.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedGetDate.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "support/ErrorOf.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestLanguage.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

qint32 day(int year, int month, int dayOfMonth) {
  return Clock::dayNumber(QDate(year, month, dayOfMonth));
}

QStringList textsOf(const ProjectSettings& settings) {
  return QStringList{settings.Title, settings.DescText, settings.AuthorName, settings.AuthorBio} +
         QStringList(settings.FieldTitles.begin(), settings.FieldTitles.end());
}

/// Five months of 2026, one behind the other, and a text in every field.
ProjectSettings wholeSettings() {
  ProjectSettings settings{u"Tides"_s,
                           u"Two lines,\r\nof which this is the second."_s,
                           u"N. Öbody"_s,
                           u"Lives\r\nand writes.\r\n"_s,
                           {u"Pace"_s, u"Tension"_s, u"Wit"_s, u"Love & hate"_s},
                           {}};
  for (int i = 0; i < 5; ++i) {
    settings.deadlines.levels[static_cast<size_t>(i)] = {day(2026, i + 2, 1), day(2026, i + 2, 28)};
  }
  return settings;
}

class EditProject : public ::testing::Test {
 protected:
  void SetUp() override {
    Settings().DeleteAllSettings();
    Clock::set(QDateTime(QDate(2026, 1, 1), QTime(12, 0)));
    // A picker that takes this date, or is cancelled.
    cSharedGetDate::installWindow([this](DateEntry& entry, const QString& caption) {
      pickers.append(caption + u' ' + entry.joined());
      if (picked.isValid()) {
        entry = DateEntry(false, u"/"_s, picked);
        entry.accept();
      }
    });
    show(wholeSettings());
  }
  void TearDown() override {
    cSharedGetDate::installWindow({});
    Clock::set({});
  }

  void show(const ProjectSettings& settings) {
    form_ = std::make_unique<frmEditProject>(settings);
    form_->show();
    ASSERT_TRUE(waitUntilActive(*form_));
  }
  frmEditProject& form() { return *form_; }
  template <class Control>
  Control& control(const QString& name) {
    return childOf<Control>(*form_, name);
  }
  QPushButton& date(const QString& name) { return control<QPushButton>(name); }
  QTabWidget& tabs() { return control<QTabWidget>(u"TabStrip1"_s); }
  void press(const char* name) { QTest::mouseClick(&control<QPushButton>(QString::fromLatin1(name)), Qt::LeftButton); }
  void setDates(std::initializer_list<Deadlines::Range> levels) {
    ProjectSettings settings = wholeSettings();
    std::copy(levels.begin(), levels.end(), settings.deadlines.levels.begin());
    show(settings);
  }
  /// The dates whose text isn't in the colour of the others.
  QStringList red() {
    QStringList found;
    for (const QPushButton* button : form().findChildren<QPushButton*>()) {
      if (button->palette().color(QPalette::ButtonText) != form().palette().color(QPalette::ButtonText)) {
        found.append(button->objectName());
      }
    }
    return found;
  }
  QString focused() { return form().focusWidget() == nullptr ? QString() : form().focusWidget()->objectName(); }

  ScriptedToolkit toolkit;
  QStringList pickers;
  QDate picked;

 private:
  std::unique_ptr<frmEditProject> form_;
};

}  // namespace

TEST_F(EditProject, GivesBackToTheCharacterWhatItWasGiven) {
  EXPECT_EQ(form().settings(), wholeSettings());
  EXPECT_EQ(form().windowTitle(), u"Project Settings"_s);
  EXPECT_EQ(focused(), u"txtTitle"_s);
  press("cmdSave");
  EXPECT_EQ(form().result(), QDialog::Accepted);
  EXPECT_FALSE(form().isVisible());
}

TEST_F(EditProject, EachTabIsReachedByItsLetterAndTakesWhatIsTyped) {
  const auto type = [this](Qt::Key tab, const QString& field, const QString& text) {
    QTest::keyClick(&form(), tab, Qt::AltModifier);
    auto& widget = control<QWidget>(field);
    EXPECT_TRUE(widget.isVisible()) << field;
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_End);
    QTest::keyClick(&widget, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(&widget, text);
  };
  type(Qt::Key_A, u"txtAuthor"_s, u"1"_s);
  type(Qt::Key_A, u"txtBio"_s, u"2"_s);
  type(Qt::Key_R, u"txtField(4)"_s, u"3"_s);
  type(Qt::Key_P, u"txtDesc"_s, u"4"_s);
  type(Qt::Key_P, u"txtTitle"_s, u"5"_s);
  ProjectSettings expected = wholeSettings();
  expected.AuthorName += u'1';
  expected.AuthorBio += u'2';
  expected.FieldTitles[3] += u'3';
  expected.DescText += u'4';
  expected.Title += u'5';
  EXPECT_EQ(textsOf(form().settings()), textsOf(expected));
  QTest::keyClick(&form(), Qt::Key_Return);
  EXPECT_EQ(form().result(), QDialog::Accepted) << "Enter in a line saves";
}

TEST_F(EditProject, RatingsGoBackToTheirDefaults) {
  press("cmdDefault");
  EXPECT_EQ(form().settings().FieldTitles,
            (std::array<QString, 4>{u"Relevance"_s, u"Tension"_s, u"Humour"_s, u"Quality"_s}));
}

TEST_F(EditProject, ANameThatNoFileCanHoldIsToldAndStaysToBeMended) {
  control<QLineEdit>(u"txtField(3)"_s).setText(u"Темп"_s);
  toolkit.expectBox(u"The name 'Темп' has characters that a project file can't hold"_s);
  press("cmdSave");
  EXPECT_TRUE(form().isVisible());
  EXPECT_EQ(tabs().currentIndex(), 2);
  EXPECT_EQ(focused(), u"txtField(3)"_s);
  newProject();
  const ProjectSettings before = ProjectSettings::of(*g_Project);
  EXPECT_EQ(errorOf([this] { form().settings().storeIn(*g_Project); }), 5);
  EXPECT_EQ(ProjectSettings::of(*g_Project), before) << "nothing is stored by halves";
}

TEST_F(EditProject, WhatWasChangedIsDiscardedOnlyWhenTheUserSaysSo) {
  const auto leaveByEscape = [this] { QTest::keyClick(&form(), Qt::Key_Escape); };
  leaveByEscape();
  EXPECT_FALSE(form().isVisible()) << "nothing was changed";
  struct Case {
    const char* what;
    std::function<void()> change;
    std::function<void()> leave;
  };
  for (const Case& known :
       {Case{"text", [this] { control<QPlainTextEdit>(u"txtBio"_s).appendPlainText(u"More."_s); }, leaveByEscape},
        Case{"name", [this] { control<QLineEdit>(u"txtField(1)"_s).clear(); }, [this] { press("cmdCancel"); }},
        Case{"date", [this] { date(u"lblDeadline(0)"_s).click(); }, [this] { form().close(); }}}) {
    SCOPED_TRACE(known.what);
    show(wholeSettings());
    picked = QDate(2026, 2, 2);
    known.change();
    toolkit.expectBox(u"Discard the changes?"_s, Answer::No);
    known.leave();
    EXPECT_TRUE(form().isVisible());
    EXPECT_NE(form().settings(), wholeSettings());
    toolkit.expectBox(u"Discard the changes?"_s, Answer::Yes);
    known.leave();
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(form().result(), QDialog::Rejected);
  }
}

TEST_F(EditProject, ADateIsChangedByClickEnterOrSpaceAndKeptOnCancel) {
  struct Case {
    const char* name;
    Qt::Key key;
    QString caption;
  };
  tabs().setCurrentIndex(3);
  EXPECT_EQ(control<QLabel>(u"lblFinish(1)"_s).text(), u"Draft:"_s);
  EXPECT_EQ(control<QLabel>(u"lblFinish(4)"_s).text(), u"Final Edit:"_s);
  EXPECT_EQ(date(u"lblDeadlineStart(3)"_s).text(), u"01/05/2026"_s);
  for (const Case& known : {Case{"lblDeadline(0)", Qt::Key_Return, u"Outline deadline date 28/02/2026"_s},
                            Case{"lblDeadlineStart(3)", Qt::Key_Space, u"2nd Edit start date 01/05/2026"_s},
                            Case{"lblDeadline(4)", Qt::Key_unknown, u"Project completion date 28/06/2026"_s}}) {
    QPushButton& button = date(QString::fromLatin1(known.name));
    const QString before = button.text();
    for (const QDate& answer : {QDate(), QDate(2027, 8, 9)}) {
      picked = answer;
      button.setFocus();
      known.key == Qt::Key_unknown ? QTest::mouseClick(&button, Qt::LeftButton) : QTest::keyClick(&button, known.key);
      ASSERT_FALSE(pickers.isEmpty());
      EXPECT_EQ(pickers.takeLast(), known.caption);
      EXPECT_EQ(button.text(), answer.isValid() ? u"09/08/2027"_s : before);
    }
  }
  EXPECT_EQ(form().settings().deadlines.levels[3].start, day(2027, 8, 9));
  EXPECT_EQ(form().settings().deadlines.levels[0].end, day(2027, 8, 9));
}

TEST_F(EditProject, DatesThatAreUnsetComeFilled) {
  setDates({{}, {}, {}, {}, {}});
  EXPECT_EQ(date(u"lblDeadlineStart(0)"_s).text(), u"01/01/2026"_s);
  EXPECT_EQ(date(u"lblDeadline(0)"_s).text(), u"30/01/2026"_s);
  EXPECT_EQ(form().settings().deadlines.levels[4].end, day(2026, 1, 1) + 149);
  EXPECT_EQ(red(), QStringList());
  form().close();
  EXPECT_FALSE(form().isVisible()) << "that alone is no change of the user's";
}

TEST_F(EditProject, TheUsualNamesOfRatingsAreShownInALanguageAndKeptInEnglish) {
  const TestLanguage language(u"Tension||Spannung\nHumour||Humor\nRelevance||Gewicht\nQuality||Güte\n"_s);
  ProjectSettings settings = wholeSettings();
  settings.FieldTitles = {u"Tempo"_s, u"Tension"_s, {}, {}};
  show(settings);
  EXPECT_EQ(control<QLineEdit>(u"txtField(2)"_s).text(), u"Spannung"_s);
  control<QLineEdit>(u"txtField(4)"_s).setText(u"Humor"_s);
  EXPECT_EQ(form().settings().FieldTitles, (decltype(settings.FieldTitles){u"Tempo"_s, u"Tension"_s, {}, u"Humour"_s}));
  tabs().setCurrentIndex(2);
  press("cmdDefault");
  EXPECT_EQ(control<QLineEdit>(u"txtField(3)"_s).text(), u"Humor"_s);
  EXPECT_EQ(form().settings().FieldTitles[3], u"Quality"_s);
}

TEST_F(EditProject, DatesOutOfOrderAreRedSaidAndAskedAbout) {
  tabs().setCurrentIndex(3);
  auto& warning = control<QLabel>(u"lblOutOfOrder"_s);
  EXPECT_FALSE(warning.isVisible());
  picked = QDate(2026, 2, 27);
  date(u"lblDeadlineStart(1)"_s).click();
  EXPECT_EQ(red(), QStringList{u"lblDeadlineStart(1)"_s});
  EXPECT_TRUE(warning.isVisible());
  EXPECT_EQ(date(u"lblDeadlineStart(1)"_s).toolTip(), u"This start date comes before the deadline above it."_s);
  EXPECT_EQ(date(u"lblDeadlineStart(1)"_s).accessibleDescription(), date(u"lblDeadlineStart(1)"_s).toolTip());
  EXPECT_EQ(date(u"lblDeadlineStart(1)"_s).accessibleName(), u"Draft start date, 27/02/2026"_s);
  date(u"lblDeadline(4)"_s).click();
  EXPECT_EQ(date(u"lblDeadline(4)"_s).toolTip(), u"This deadline comes before its start date."_s);

  const QString question = u"You have invalid dates in your settings. Do you want to edit them?"_s;
  for (const Answer stay : {Answer::Yes, Answer::Cancel}) {
    tabs().setCurrentIndex(0);
    toolkit.expectBox(question, stay);
    press("cmdSave");
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(tabs().currentIndex(), 3);
    EXPECT_EQ(focused(), u"lblDeadlineStart(1)"_s);
  }
  toolkit.expectBox(question, Answer::No);
  press("cmdSave");
  EXPECT_EQ(form().result(), QDialog::Accepted);
  EXPECT_EQ(form().settings().deadlines.levels[4].end, day(2026, 2, 27)) << "as they are";
}
