#include "core/infra/cSHAREDSettings.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Loads a table from the text of a file.
cSHAREDSettings loaded(const QByteArray& content) {
  const ScratchFolder folder;
  Files().WriteTextFile(folder.path(u"s.ini"_s), content);
  cSHAREDSettings settings;
  settings.LoadSettings(folder.path(u"s.ini"_s));
  return settings;
}

QByteArray saved(cSHAREDSettings& settings) {
  const ScratchFolder folder;
  EXPECT_TRUE(settings.SaveSettings(folder.path(u"s.ini"_s)));
  return fileBytes(folder.path(u"s.ini"_s));
}

class FakeWindow : public SettingsWindow {
 public:
  State now = State::Normal;
  double wide = 6000;
  double high = 4000;
  /// It becomes no wider than this.
  double room = 1e9;

  State state() const override { return now; }
  double width() const override { return wide; }
  double height() const override { return high; }
  double screenWidth() const override { return 20000; }
  double screenHeight() const override { return 15000; }
  void setWidth(double twips) override { wide = std::min(twips, room); }
  void setHeight(double twips) override { high = twips; }
  void maximise() override { now = State::Maximised; }
};

}  // namespace

TEST(cSHAREDSettings, TheFileHasOneLineAnEntryInPrintForm) {
  cSHAREDSettings settings;
  settings.sSet(u"frmMainWindowWidth"_s, 5);
  settings.sSet(u"Path"_s, u"C:\\a,b "_s);
  settings.sSet(u"Flag"_s, true);
  settings.sSet(u"Nothing"_s, {});
  settings.sSet(u"Size"_s, 12.25F);
  settings.sSet(u"Single"_s, 1200.1F);
  settings.sSet(u"Below"_s, -0.5);
  settings.sSet(u"Huge"_s, 1.5e20);
  settings.sSet(u"fr\u00E9d\u0416"_s, u"\u0416 %u0041"_s);
  EXPECT_EQ(saved(settings),
            "FRMMAINWINDOWWIDTH, 5 \r\nPATH,C:\\a,b \r\nFLAG,-1 \r\nNOTHING,\r\nSIZE, 12.25 \r\nSINGLE, 1200.1 \r\n"
            "BELOW,-0.5 \r\nHUGE, 1.5E+20 \r\n"
            "FR\xC9"
            "D%u0416,%u0416 %u0025u0041\r\n");
}

TEST(cSHAREDSettings, OddLinesAreReadAsTold) {
  const cSHAREDSettings settings =
      loaded("FIRST,C:\\a,b\r\n,value\r\n   ,value\r\nKEY\r\n\r\nTRUTH, true \r\nLIE,FALSE\r\nfirst,second\r\nEND, 5 ");
  EXPECT_EQ(settings.SettingsCount(), 4);
  EXPECT_EQ(settings.SettingNameByIndex(1), u"FIRST"_s);
  EXPECT_EQ(settings.sGet(u"First"_s), u"second"_s) << "the first place and the last value";
  EXPECT_EQ(settings.sGet(u"truth"_s), -1);
  EXPECT_EQ(settings.sGet(u"lie"_s), 0);
  EXPECT_EQ(settings.sGet(u"end"_s), u" 5 "_s);
  EXPECT_EQ(loaded("A,b,c").sGet(u"a"_s), u"b,c"_s);
  EXPECT_EQ(loaded("A,1\nB,2\n").sGet(u"b"_s), u"2"_s) << "a file from another editor";
  EXPECT_EQ(loaded("A,1\n2\r\n").sGet(u"a"_s), u"1\n2"_s);
}

TEST(cSHAREDSettings, WhatIsSavedComesBackInOrder) {
  cSHAREDSettings settings;
  const QString odd = u"\u0416\u20AC\U0001F600,%u0041 \" = [x]\tend"_s;
  for (int i = 0; i < 50; ++i) {
    settings.sSet(u"key"_s + QString::number(i * 7 % 50), odd + QString::number(i));
  }
  settings.DeleteSettingByName(u"KEY21"_s);
  const cSHAREDSettings again = loaded(saved(settings));
  ASSERT_EQ(again.SettingsCount(), 49);
  for (int i = 1; i <= 49; ++i) {
    const QString name = settings.SettingNameByIndex(i);
    EXPECT_EQ(again.SettingNameByIndex(i), name.toUpper());
    EXPECT_EQ(again.sGet(name), settings.sGet(name));
  }
}

TEST(cSHAREDSettings, ALineEndInAValueOrAKeyBreaksNoLine) {
  cSHAREDSettings settings;
  settings.sSet(u"search"_s, u"one\r\nOTHER,two\rthree\n"_s);
  settings.sSet(u"od\r\nd"_s, u"%u000D is no line end"_s);
  settings.sSet(u"other"_s, u"kept"_s);
  const QByteArray file = saved(settings);
  EXPECT_EQ(file,
            "SEARCH,one%u000D%u000AOTHER,two%u000Dthree%u000A\r\nOD%u000D%u000AD,%u0025u000D is no line end\r\n"
            "OTHER,kept\r\n");
  cSHAREDSettings again = loaded(file);
  for (const QString& key : {u"search"_s, u"od\r\nd"_s, u"other"_s}) {
    EXPECT_EQ(again.sGet(key), settings.sGet(key));
  }
  EXPECT_EQ(saved(again), file);
}

TEST(cSHAREDSettings, KeysAreTheSameWithoutCaseAndCommas) {
  cSHAREDSettings settings;
  settings.sSet(u"A,Bc"_s, 1);
  settings.sSet(u"x"_s, 2);
  settings.sSet(u"abC"_s, 3);
  EXPECT_EQ(settings.SettingsCount(), 2);
  EXPECT_EQ(settings.SettingNameByIndex(1), u"ABc"_s) << "place and case of the first";
  EXPECT_EQ(settings.sGet(u"a,b,c"_s), 3);
  EXPECT_TRUE(settings.IsSettingPresent(u"ab,c"_s));
  settings.DeleteSettingByName(u"ABC,"_s);
  EXPECT_FALSE(settings.IsSettingPresent(u"abc"_s));
  settings.DeleteSetting(1);
  EXPECT_EQ(settings.SettingsCount(), 0);
  settings.DeleteSetting(1);
  EXPECT_TRUE(
      Logging().CurrentAction().contains(u"Subscript out of range (9) in DeleteSetting of module cSHAREDSett"_s));
  EXPECT_EQ(settings.SettingNameByIndex(0), QString());
}

TEST(cSHAREDSettings, TruthComesBackAsABooleanAndZeroGivesTheDefault) {
  cSHAREDSettings settings;
  const QVariant yes = true;
  struct Case {
    QVariant stored;
    QVariant got;
    QVariant withDefaultSeven;
  };
  const Case cases[] = {{u" true"_s, true, true},
                        {u"FALSE"_s, false, 7},
                        {true, -1, -1},
                        {false, 0, 7},
                        {0, 0, 7},
                        {u" 0 "_s, u" 0 "_s, 7},
                        {u" 5 "_s, u" 5 "_s, u" 5 "_s},
                        {u"text"_s, u"text"_s, 7},
                        {u""_s, u""_s, 7},
                        {2.5, 2.5, 2.5},
                        {QVariant(), QVariant(), 7}};
  for (const Case& each : cases) {
    settings.sSet(u"k"_s, each.stored);
    EXPECT_EQ(settings.sGet(u"k"_s, u"other"_s), each.got);
    EXPECT_EQ(settings.sGetWD(u"k"_s, 7), each.withDefaultSeven);
  }
  EXPECT_EQ(settings.sGet(u"missing"_s, u"True"_s), yes) << "a default is read the same way";
  EXPECT_FALSE(settings.sGet(u"missing"_s).isValid());
  Logging().WriteActionsToLog();
  settings.sSet(u"k"_s, u"text"_s);
  EXPECT_EQ(settings.RetrieveWithDefault(u"k"_s, 7), 7);
  EXPECT_EQ(Logging().CurrentAction(), u"DBG: Type mismatch (13) in RetrieveWithDefault of module cSHAREDSettings"_s);
}

TEST(cSHAREDSettings, SetsGrowAndClose) {
  cSHAREDSettings settings;
  EXPECT_EQ(settings.AddToSet(u"recent"_s, u"a"_s), 1);
  settings.sSet(u"RECENT_2"_s, u"taken"_s);
  EXPECT_EQ(settings.AddToSet(u"Recent"_s, u"b"_s), 3) << "an occupied slot is skipped";
  EXPECT_EQ(settings.AddToSet(u"recent"_s, u" A "_s), 4);
  EXPECT_EQ(settings.SetCount(u"recent"_s), 4);
  EXPECT_TRUE(settings.ValueInSet(u"recent"_s, u" B"_s));
  settings.DeleteFromSetByValue(u"recent"_s, u"A"_s);
  EXPECT_EQ(saved(settings), "RECENT_INDEX, 3 \r\nRECENT_1,taken\r\nRECENT_2,b\r\nRECENT_3, A \r\n")
      << "only the first of the equal ones goes, and the order stays";
  settings.DeleteFromSetByValue(u"recent"_s, u"nobody"_s);
  EXPECT_EQ(settings.SetCount(u"recent"_s), 3);

  settings.DeleteSettingByName(u"RECENT_2"_s);
  Logging().WriteActionsToLog();
  EXPECT_EQ(settings.SetCount(u"recent"_s), 2);
  EXPECT_EQ(Logging().CurrentAction(), u"DBG: WARNING: LastIDX and Setcount not the same with setting 'recent'"_s);
  settings.DeleteFromSetByValue(u"recent"_s, u"taken"_s);
  EXPECT_EQ(settings.sGet(u"recent_2"_s), u" A "_s) << "a hole moves up with the members";
  settings.DeleteFromSetByValue(u"recent"_s, u"a"_s);
  EXPECT_TRUE(settings.IsSettingPresent(u"RECENT_INDEX"_s));
  EXPECT_EQ(settings.LastIndexInSet(u"recent"_s), 1);
  settings.sSet(u"RECENT_9"_s, u"stale"_s);
  settings.DeleteASet(u"recent"_s);
  EXPECT_EQ(settings.SettingsCount(), 0);
}

TEST(cSHAREDSettings, ManyEntriesAreWalkedAndDeletedByPosition) {
  cSHAREDSettings settings;
  constexpr int kMany = 50000;
  for (int i = 0; i < kMany; ++i) {
    settings.sSet(u"k"_s + QString::number(i), i);
  }
  settings.DeleteSettingByName(u"k1"_s);
  settings.sSet(u"k1"_s, 1);
  EXPECT_EQ(settings.SettingNameByIndex(2), u"k2"_s);
  EXPECT_EQ(settings.SettingNameByIndex(kMany), u"k1"_s) << "put in anew it stands last";
  for (int left = kMany; left > 0; --left) {
    const QString name = settings.SettingNameByIndex(left % 2 == 0 ? 1 : left);
    ASSERT_TRUE(settings.IsSettingPresent(name));
    settings.DeleteSetting(left % 2 == 0 ? 1 : left);
    ASSERT_FALSE(settings.IsSettingPresent(name));
  }
  EXPECT_EQ(settings.SettingsCount(), 0);
}

TEST(cSHAREDSettings, AnAbsurdSetIndexCostsNoTime) {
  cSHAREDSettings settings = loaded("N_INDEX,2147483647\r\nN_1,a\r\nN_5,b\r\nN_05,odd\r\nM_INDEX,-7\r\n");
  EXPECT_EQ(settings.SetCount(u"n"_s), 2);
  EXPECT_TRUE(settings.ValueInSet(u"n"_s, u"b"_s));
  EXPECT_EQ(settings.AddToSet(u"n"_s, u"c"_s), 0) << "there is no number left";
  settings.DeleteFromSetByValue(u"n"_s, u"a"_s);
  EXPECT_EQ(settings.sGet(u"N_4"_s), u"b"_s);
  settings.DeleteASet(u"n"_s);
  EXPECT_EQ(settings.AddToSet(u"m"_s, u"first"_s), 1);
}

namespace {

/// Answers Retry and makes room, as a person would.
class MakesRoom : public ScriptedToolkit {
 public:
  FailingDisk* disk = nullptr;
  Answer MsgBox(const QString& text, Buttons buttons) override {
    const Answer answer = ScriptedToolkit::MsgBox(text, buttons);
    if (answer == Answer::Retry && disk != nullptr) {
      disk->clear();
    }
    return answer;
  }
};

}  // namespace

TEST(cSHAREDSettings, AFullDiskKeepsTheOldFileUntilTheRetry) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const ScratchFolder folder;
  const QString path = folder.path(u"s.ini"_s);
  cSHAREDSettings settings;
  settings.sSet(u"a"_s, u"old"_s);
  ASSERT_TRUE(settings.SaveSettings(path));
  settings.sSet(u"a"_s, u"new value"_s);
  MakesRoom person;
  FailingDisk full(4);
  person.disk = &full;
  person.expectBox(u":\rPlease clear some space and then click Retry, else click Cancel to abort."_s, Answer::Cancel);
  EXPECT_FALSE(settings.SaveSettings(path));
  EXPECT_EQ(fileBytes(path), "A,old\r\n");
  const QString former = QDir::currentPath();
  QDir::setCurrent(folder.path());
  person.expectBox(u"You've run out of disk space on drive /"_s, Answer::Cancel);
  EXPECT_FALSE(settings.SaveSettings(u"s.ini"_s)) << "a name without a folder has a volume too";
  QDir::setCurrent(former);
  person.expectBox(u"You've run out of disk space on drive "_s, Answer::Retry);
  EXPECT_TRUE(settings.SaveSettings(path));
  EXPECT_EQ(fileBytes(path), "A,new value\r\n");
}

TEST(cSHAREDSettings, WhatStandsInTheWayOfASaveIsTold) {
  const ScratchFolder folder;
  QDir(folder.path()).mkdir(u"s.ini"_s);
  cSHAREDSettings settings;
  settings.sSet(u"a"_s, 1);
  ScriptedToolkit person;
  const QString readOnly = u"Your settings file is read-only and I can't change it. Save cancelled."_s;
  person.expectBox(readOnly);
  EXPECT_FALSE(settings.SaveSettings(folder.path(u"s.ini"_s)));
  person.expectBox(readOnly);
  EXPECT_FALSE(settings.SaveSettings({}));
  person.expectErrorReport(u"76 - Path not found"_s);
  EXPECT_FALSE(settings.SaveSettings(folder.path(u"missing/s.ini"_s)));
  ASSERT_EQ(person.errorReports.size(), 1);
  EXPECT_TRUE(person.errorReports.constFirst().endsWith(u" in SaveSettings"_s));
  EXPECT_EQ(settings.sGet(u"a"_s), 1) << "the table is as it was";
}

TEST(cSHAREDSettings, AReadOnlyFileIsMadeWritableAndSaved) {
  const ScratchFolder folder;
  const QString path = folder.path(u"s.ini"_s);
  Files().WriteTextFile(path, QByteArray("A,old\r\n"));
  QFile::setPermissions(path, QFile::ReadOwner);
  cSHAREDSettings settings;
  settings.LoadSettings(path);
  settings.sSet(u"b"_s, u"x"_s);
  const ScriptedToolkit person;
  EXPECT_TRUE(settings.SaveSettings(path));
  EXPECT_EQ(fileBytes(path), "A,old\r\nB,x\r\n");
}

TEST(cSHAREDSettings, ANearlyFullScreenSizeIsMaximised) {
  cSHAREDSettings settings;
  const auto restoredState = [&](const QVariant& width, const QVariant& height) {
    settings.sSet(u"fWindowWidth"_s, width);
    settings.sSet(u"fWindowHeight"_s, height);
    FakeWindow window;
    settings.ReadWindowSettings(u"f"_s, window);
    return window.now;
  };
  EXPECT_EQ(restoredState(19001, 14251), SettingsWindow::State::Maximised);
  EXPECT_EQ(restoredState(19001, 14250), SettingsWindow::State::Normal);
  EXPECT_EQ(restoredState(u"junk"_s, -99999), SettingsWindow::State::Normal);

  // What was stored counts, not what the window could be made.
  settings.sSet(u"fWindowWidth"_s, 30000);
  settings.sSet(u"fWindowHeight"_s, 15000);
  FakeWindow narrow;
  narrow.room = 18000;
  settings.ReadWindowSettings(u"f"_s, narrow);
  EXPECT_EQ(narrow.wide, 18000);
  EXPECT_EQ(narrow.now, SettingsWindow::State::Maximised);
}

TEST(cSHAREDSettings, AMaximisedWindowKeepsItsNormalSizeThroughAnyNumberOfStarts) {
  cSHAREDSettings settings;
  settings.sSet(u"fWindowWidth"_s, 30000);
  settings.sSet(u"fWindowHeight"_s, 15000);
  for (int start = 0; start < 4; ++start) {
    FakeWindow window;
    window.room = 18000;
    settings.ReadWindowSettings(u"f"_s, window);
    EXPECT_EQ(window.now, SettingsWindow::State::Maximised) << start;
    settings.StoreWindowSettings(u"f"_s, window);
    settings = loaded(saved(settings));
  }
  EXPECT_EQ(Numbers::ToInt(settings.sGet(u"fWindowWidth"_s)), 30000);
  EXPECT_EQ(Numbers::ToInt(settings.sGet(u"fWindowHeight"_s)), 15000);
}

// A file that is there and can't be read is still the writer's: it is put aside before another takes its place.
TEST(cSHAREDSettings, AFileThatCouldNotBeReadIsNotOverwritten) {
  ScriptedToolkit person;
  const ScratchFolder folder;
  const QString path = folder.path(u"s.ini"_s);
  writeFile(path, "KEEP,precious\r\n");
  QFile::setPermissions(path, QFileDevice::WriteOwner);
  {
    const OrdinaryUser user;
    if (!user.limited()) {
      GTEST_SKIP() << "permissions don't refuse here";
    }
    cSHAREDSettings settings;
    person.expectErrorReport(u"in setting file."_s);
    settings.LoadSettings(path);
    settings.sSet(u"NEW"_s, 1);
    settings.SaveSettings(path);
  }
  const QString aside = QFile::exists(path + u".bak"_s) ? path + u".bak"_s : path;
  QFile::setPermissions(aside, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  EXPECT_EQ(fileBytes(aside), "KEEP,precious\r\n");
}
