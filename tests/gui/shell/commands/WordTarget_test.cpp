// The window of the daily word target: what it shows, its keys, and what becomes of what was typed.

#include "core/infra/Clock.h"
#include "core/infra/cSharedGetDate.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/planning/TargetBar.h"
#include "gui/planning/frmWordTarget.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/fSHAREDGetDate.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class WordTargetTest : public ShellTest {
 protected:
  /// Nine words are used in the book.
  void SetUp() override {
    ShellTest::SetUp();
    Clock::set(QDateTime(QDate(2026, 1, 2), QTime(12, 0)));
    path_ = smallProject();
    startWith(path_);
    cSharedGetDate::installWindow([this](DateEntry& entry, const QString& caption) {
      asked.append(caption + u' ' + entry.joined());
      entry.press(DateEntry::Key::Cancel);
      if (picked.isValid()) {
        entry.setText(DateEntry::First, picked.toString(u"dd"_s));
        entry.setText(DateEntry::Second, picked.toString(u"MM"_s));
        entry.setText(DateEntry::Year, picked.toString(u"yyyy"_s));
        entry.press(DateEntry::Key::Accept);
      }
    });
    open();
  }
  void TearDown() override {
    fSHAREDGetDate::install();
    Clock::set({});
    ShellTest::TearDown();
  }

  void open() {
    trigger("mnuWordTarget");
    EXPECT_TRUE(waitUntilActive(form()));
  }
  frmWordTarget& form() { return control<frmWordTarget>("frmWordTarget"); }
  QString text(const char* label) { return childOf<QLabel>(form(), QString::fromLatin1(label)).text(); }
  QPushButton& button(const char* name) { return childOf<QPushButton>(form(), QString::fromLatin1(name)); }
  TargetBar& bar() { return childOf<TargetBar>(form(), u"Picture1"_s); }
  void type(const char* field, const QString& typed) {
    auto& line = childOf<QLineEdit>(form(), QString::fromLatin1(field));
    line.setFocus();
    line.selectAll();
    typed.isEmpty() ? QTest::keyClick(&line, Qt::Key_Delete) : QTest::keyClicks(&line, typed);
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* const focused = form().focusWidget();
    QTest::keyClick(focused == nullptr ? &form() : focused, key, modifiers);
  }
  /// Days left, words a day, total, bar, scale, status.
  QStringList figures() {
    return {text("lblNumDays"), text("lblWordsPerDay"), text("lblTotalWords"), bar().text(),
            text("lblStart"),   text("lblMid"),         text("lblEnd"),        text("lblStatus")};
  }

  QString path_;
  QDate picked;
  QStringList asked;
};

TEST_F(WordTargetTest, EachChangeIsWorkedOutAtOnce) {
  EXPECT_EQ(form().windowTitle(), u"Word Count Target"_s);
  EXPECT_EQ(button("lblStartDate").text() + button("lblEndDate").text(), u"02/01/202601/02/2026"_s);
  EXPECT_EQ(text("lblProjCount"), u"9"_s);
  const auto unknown = [](const QString& days, const QString& status) {
    return QStringList{days, u"N/A"_s, {}, {}, {}, {}, {}, status};
  };
  EXPECT_EQ(figures(), unknown(u"31"_s, u"Need a TARGET word count"_s));
  type("txtEndCount", u"45"_s);
  EXPECT_EQ(figures(), (QStringList{u"31"_s, u"1"_s, u"45"_s, u"9 words done (20.0%)"_s, u"0"_s, u"22"_s, u"45"_s,
                                    u"You need to write 36 more words"_s}));
  EXPECT_DOUBLE_EQ(bar().share(), 0.2);
  button("cmdCopy").click();
  EXPECT_EQ(figures(), (QStringList{u"31"_s, u"1"_s, u"54"_s, u"0 words done (0.0%)"_s, u"9"_s, u"31"_s, u"54"_s,
                                    u"You need to write 45 more words"_s}));
  type("txtStartCount", u"20"_s);
  EXPECT_EQ(bar().text(), u"-11 words done (-24.4%)"_s);
  EXPECT_EQ(bar().share(), 0);
  type("txtStartCount", u"x"_s);
  EXPECT_EQ(figures(), unknown(u"31"_s, u"Starting Count must be a number"_s));
  type("txtStartCount", {});
  type("txtEndCount", u"8"_s);
  EXPECT_EQ(figures(), unknown(u"31"_s, u"Word count achieved"_s));
  type("txtEndCount", u"many"_s);
  EXPECT_EQ(figures(), unknown(u"31"_s, u"Words to Write must be a number"_s));
  EXPECT_TRUE(Logging().CurrentAction().contains(u"(13) in Recalc of module frmWordTarget"_s));
}

TEST_F(WordTargetTest, DatesAreChosenByKeysAndKeptOnCancel) {
  const auto asks = [this](const QString& expected) {
    EXPECT_TRUE(soon([&] { return !asked.isEmpty(); })) << expected;
    EXPECT_EQ(asked, QStringList{expected});
    asked.clear();
  };
  press(Qt::Key_E, Qt::AltModifier);
  asks(u"End date 01/02/2026"_s);
  EXPECT_EQ(form().focusWidget(), &button("lblEndDate"));
  press(Qt::Key_Return);
  asks(u"End date 01/02/2026"_s);
  picked = QDate(2026, 1, 1);
  press(Qt::Key_Space);
  asks(u"End date 01/02/2026"_s);
  press(Qt::Key_A, Qt::AltModifier);
  asks(u"Start date 02/01/2026"_s);
  EXPECT_EQ(button("lblStartDate").accessibleName(), u"Start date, 01/01/2026"_s);
  EXPECT_EQ(figures().constFirst(), u"N/A"_s);
  EXPECT_EQ(text("lblStatus"), u"Please ensure the end date is ahead of today's date"_s);
}

TEST_F(WordTargetTest, SavingStoresTheFourAndEscapeNothing) {
  type("txtEndCount", u"50,000"_s);
  press(Qt::Key_Escape);
  EXPECT_EQ(g_Project->WordTarget, 0);
  EXPECT_TRUE(soon([this] { return window().findChild<frmWordTarget*>() == nullptr; }));
  open();
  type("txtEndCount", u"50,000"_s);
  type("txtStartCount", u"2.5"_s);
  press(Qt::Key_Return);
  EXPECT_TRUE(soon([this] { return window().findChild<frmWordTarget*>() == nullptr; }));
  EXPECT_EQ(WordTarget::of(*g_Project, 0), (WordTarget{46024, 46054, 2, 50000}));
  const QByteArray saved = fileBytes(path_);
  EXPECT_TRUE(saved.contains("<WordTarget>50000</WordTarget>") && saved.contains("2026-02-01")) << saved.left(2000);
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_EQ(control<QLabel>("Totalwords").toolTip(), u"Daily word target: 1,613 words a day until 01/02/2026"_s);
  open();
  EXPECT_EQ(childOf<QLineEdit>(form(), u"txtEndCount"_s).text(), u"50000"_s);
  type("txtEndCount", u"none"_s);
  type("txtStartCount", u"7"_s);
  button("cmdSave").click();
  EXPECT_EQ(WordTarget::of(*g_Project, 0), (WordTarget{46024, 46054, 7, 50000})) << "what is no number stays";
}

TEST_F(WordTargetTest, ASaveThatFailsIsToldAndTheTargetKept) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  type("txtEndCount", u"777"_s);
  FailingDisk disk(100);
  toolkit.expectBox(u"Unable to "_s);
  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  button("cmdSave").click();
  EXPECT_EQ(g_Project->WordTarget, 777);
  EXPECT_TRUE(window().ProjectChanged);
  disk.clear();
  trigger("mnuCloseProject");
  EXPECT_TRUE(fileBytes(path_).contains("<WordTarget>777</WordTarget>"));
}
