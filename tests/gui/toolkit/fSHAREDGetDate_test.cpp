#include "gui/toolkit/fSHAREDGetDate.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedGetDate.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/ScriptedToolkit.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The picker, shown and active, started at 2 March 2026 with the day first.
class fSHAREDGetDateTest : public ::testing::Test {
 protected:
  fSHAREDGetDateTest() {
    window.show();
    EXPECT_TRUE(waitUntilActive(window));
  }

  QLineEdit* field(const QString& name) { return &childOf<QLineEdit>(window, name); }
  static QWidget* focus() { return &required(QApplication::focusWidget(), u"field with the keyboard"_s); }
  static QString focused() { return focus()->objectName(); }
  static void keys(const QString& typed) {
    for (const QChar key : typed) {
      QTest::keyClick(focus(), key.toLatin1());
    }
  }
  static void key(Qt::Key code) { QTest::keyClick(focus(), code); }

  DateEntry entry{false, u"/"_s, QDate(2026, 3, 2)};
  fSHAREDGetDate window{entry, u"When?"_s};
  QLineEdit* first = field(u"txtField(0)"_s);
  QLineEdit* second = field(u"txtField(1)"_s);
  QLineEdit* year = field(u"txtYear"_s);
};

}  // namespace

TEST_F(fSHAREDGetDateTest, ShowsTheStartInLocalOrder) {
  EXPECT_EQ(first->text() + second->text() + year->text(), u"02032026"_s);
  EXPECT_EQ(first->accessibleName(), u"Day"_s);
  EXPECT_EQ(second->accessibleName(), u"Month"_s);
  EXPECT_EQ(childOf<QLabel>(window, u"lblSlash(1)"_s).text(), u"/"_s);
  EXPECT_EQ(childOf<QLabel>(window, u"lblFormatString"_s).text(), u"DD/MM"_s);
  EXPECT_FALSE(childOf<QLabel>(window, u"lblDate"_s).isVisible());
  EXPECT_EQ(focused(), u"txtField(0)"_s);
}

TEST_F(fSHAREDGetDateTest, ADateIsTypedThroughWithSeparators) {
  keys(u"7/x4.24"_s);
  EXPECT_EQ(first->text(), u"07"_s) << "padded on leaving";
  EXPECT_EQ(second->text(), u"04"_s);
  EXPECT_EQ(focused(), u"txtYear"_s);
  key(Qt::Key_Return);
  EXPECT_EQ(year->text(), u"2024"_s);
  EXPECT_TRUE(window.isVisible()) << "the century is shown first";
  key(Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(entry.result(), QDate(2024, 4, 7));
}

TEST_F(fSHAREDGetDateTest, AMonthOverTwelveHoldsTheFocus) {
  keys(u"07/13"_s);
  key(Qt::Key_Tab);
  EXPECT_TRUE(waitFor([] { return focused() == u"txtField(1)"_s; }));
  keys(u"12/"_s);
  EXPECT_EQ(focused(), u"txtYear"_s);
  key(Qt::Key_Backspace);
  EXPECT_EQ(year->text(), QString()) << "the selected text goes first";
  key(Qt::Key_Backspace);
  EXPECT_EQ(focused(), u"txtField(1)"_s);
}

TEST_F(fSHAREDGetDateTest, BadDatesAreToldAndKept) {
  ScriptedToolkit person;
  person.expectBox(u"Invalid Date"_s);
  keys(u"31/04"_s);
  key(Qt::Key_F10);
  EXPECT_EQ(childOf<QLabel>(window, u"lblDate"_s).text(), u"31/04/2026"_s);
  EXPECT_TRUE(window.isVisible());
  person.expectBox(u"Year must be 2 or 4 digits. If you enter 2 digits I will guess at the century."_s);
  keys(u"/123"_s);
  key(Qt::Key_Return);
  EXPECT_EQ(focused(), u"txtYear"_s);
  EXPECT_EQ(year->text(), u"123"_s);
}

TEST_F(fSHAREDGetDateTest, ButtonsAcceptAndCancel) {
  QTest::mouseClick(&childOf<QPushButton>(window, u"cmdAccept"_s), Qt::LeftButton);
  EXPECT_EQ(entry.result(), QDate(2026, 3, 2));
  EXPECT_FALSE(window.isVisible());
}

TEST_F(fSHAREDGetDateTest, EveryWayOutCancels) {
  using Way = std::function<void()>;
  const Way ways[] = {[] { key(Qt::Key_Escape); }, [] { key(Qt::Key_F9); }, [this] { window.close(); },
                      [this] { QTest::mouseClick(&childOf<QPushButton>(window, u"cmdAbort"_s), Qt::LeftButton); }};
  for (const Way& leave : ways) {
    DateEntry fresh(false, u"/"_s, QDate(2026, 3, 2));
    entry = fresh;
    window.show();
    ASSERT_TRUE(waitUntilActive(window));
    second->setText(u"99"_s);
    second->setFocus();
    leave();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(entry.result().has_value());
  }
}

TEST(cSharedGetDateWindow, IsRunModallyByGetDate) {
  fSHAREDGetDate::install();
  const qint32 start = Clock::dayNumber(QDate(2026, 3, 2));
  const auto answered = [start](Qt::Key code) {
    const WhenModal press(
        [code](QWidget& window) { QTest::keyClick(&childOf<QLineEdit>(window, u"txtYear"_s), code); });
    return cSharedGetDate().GetDate(u"When?"_s, start);
  };
  EXPECT_EQ(answered(Qt::Key_Return), start);
  EXPECT_EQ(answered(Qt::Key_Escape), 0);
  cSharedGetDate::installWindow({});
}
