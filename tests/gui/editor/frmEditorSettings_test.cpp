#include "gui/editor/frmEditorSettings.h"

#include "core/infra/cSHAREDSettings.h"
#include "gui/editor/EditorWindow.h"
#include "support/ModalHelper.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class EditorSettingsTest : public EditorTest {
 protected:
  /// Opens the window from the menu and works in it.
  void inWindow(const std::function<void(QWidget&)>& work) {
    const WhenModal act(work);
    trigger(*editor_, "mnuSettings");
  }
  void begin() { editor_ = open(); }
  static bool isOn(QWidget& window, const char* name) { return button(window, name).isChecked(); }
  static QAbstractButton& button(QWidget& window, const char* name) {
    return childOf<QAbstractButton>(window, QString::fromLatin1(name));
  }
  static QString stored(const QString& key) { return Settings().sGet(key, u"-"_s).toString(); }

 private:
  frmEditor* editor_ = nullptr;
};

TEST_F(EditorSettingsTest, BeginWithTheirDefaultsAndAreStoredOnOkAlone) {
  begin();
  inWindow([&](QWidget& window) {
    EXPECT_TRUE(isOn(window, "optSameFile") && isOn(window, "chkFontBarFollowsText"));
    EXPECT_FALSE(isOn(window, "optSequential") || isOn(window, "chkCreateTextToo"));
    EXPECT_EQ(childOf<QLineEdit>(window, u"txtFreq"_s).text(), u"5"_s);
    EXPECT_FALSE(childOf<QLineEdit>(window, u"txtFreq"_s).isEnabled());
    button(window, "chkCreateTextToo").click();
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_EQ(stored(u"CreateTextToo"_s), u"-"_s);
  inWindow([&](QWidget& window) {
    button(window, "chkCreateTextToo").click();
    button(window, "chkFontBarFollowsText").click();
    button(window, "cmdOK").click();
  });
  EXPECT_EQ(stored(u"CreateTextToo"_s), u"-1"_s);
  EXPECT_EQ(stored(u"FontBarFollowsText"_s), u"0"_s);
  EXPECT_EQ(stored(u"AutoBackupSequential"_s), u"0"_s);
  EXPECT_EQ(stored(u"SequentialFrequency"_s), u"-"_s) << "written with intervals alone";
}

TEST_F(EditorSettingsTest, MinutesAreTakenWhereTheyAreWholeAndAtMostADay) {
  begin();
  for (const QString& bad : {u""_s, u"x"_s, u"-1"_s, u"2.5"_s, u"1441"_s, u"99999999999"_s}) {
    inWindow([&](QWidget& window) {
      button(window, "optSequential").click();
      auto& minutes = childOf<QLineEdit>(window, u"txtFreq"_s);
      minutes.setText(bad);
      toolkit.expectBox(u"as a whole number from 0 to 1440"_s);
      QTest::keyClick(&minutes, Qt::Key_Return);
      EXPECT_TRUE(window.isVisible());
      QTest::keyClick(&window, Qt::Key_Escape);
    });
  }
  EXPECT_EQ(stored(u"AutoBackupSequential"_s), u"-"_s);
  for (const QString& good : {u"0"_s, u" 1440 "_s}) {
    inWindow([&](QWidget& window) {
      button(window, "optSequential").click();
      childOf<QLineEdit>(window, u"txtFreq"_s).setText(good);
      button(window, "cmdOK").click();
    });
    EXPECT_EQ(stored(u"SequentialFrequency"_s), good.trimmed());
  }
  inWindow([&](QWidget& window) {
    EXPECT_TRUE(isOn(window, "optSequential"));
    EXPECT_EQ(childOf<QLineEdit>(window, u"txtFreq"_s).text(), u"1440"_s);
    button(window, "optSameFile").click();
    childOf<QLineEdit>(window, u"txtFreq"_s).setText(u"not looked at"_s);
    button(window, "cmdOK").click();
  });
  EXPECT_EQ(stored(u"AutoBackupSequential"_s), u"0"_s);
  EXPECT_EQ(stored(u"SequentialFrequency"_s), u"1440"_s);
}

}  // namespace
