#include "core/infra/cSHAREDSettings.h"

#include "core/infra/cSharedFileSubs.h"
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

}  // namespace

TEST(cSHAREDSettings, TheFileHasOneLineAnEntryInPrintForm) {
  cSHAREDSettings settings;
  settings.sSet(u"frmMainWindowWidth"_s, 5);
  settings.sSet(u"Path"_s, u"C:\\a,b "_s);
  settings.sSet(u"Flag"_s, true);
  settings.sSet(u"Nothing"_s, {});
  settings.sSet(u"Size"_s, 12.25F);
  settings.sSet(u"fr\u00E9d\u0416"_s, u"\u0416 %u0041"_s);
  EXPECT_EQ(saved(settings),
            "FRMMAINWINDOWWIDTH, 5 \r\nPATH,C:\\a,b \r\nFLAG,-1 \r\nNOTHING,\r\nSIZE, 12.25 \r\n"
            "FR\xC9"
            "D%u0416,%u0416 %u0025u0041\r\n");
}

TEST(cSHAREDSettings, OddLinesAreReadAsTold) {
  const cSHAREDSettings settings =
      loaded("FIRST,C:\\a,b\r\n,value\r\n   ,value\r\nKEY\r\n\r\nTRUTH, true \r\nLIE,FALSE\r\nfirst,second\r\nEND, 5 ");
  EXPECT_EQ(settings.SettingsCount(), 4);
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
  EXPECT_EQ(settings.SettingsCount(), 1);
}

TEST(cSHAREDSettings, TruthComesBackAsABooleanAndZeroGivesTheDefault) {
  cSHAREDSettings settings;
  const QVariant yes = true;
  const std::tuple<QVariant, QVariant, QVariant> cases[] = {{u" true"_s, true, true},
                                                            {true, -1, -1},
                                                            {false, 0, 7},
                                                            {u" 0 "_s, u" 0 "_s, 7},
                                                            {u"FALSE"_s, false, 7},
                                                            {u"text"_s, u"text"_s, 7},
                                                            {2.5, 2.5, 2.5},
                                                            {QVariant(), QVariant(), 7}};
  for (const auto& [stored, got, withDefaultSeven] : cases) {
    settings.sSet(u"k"_s, stored);
    EXPECT_EQ(settings.sGet(u"k"_s, u"other"_s), got);
    EXPECT_EQ(settings.sGetWD(u"k"_s, 7), withDefaultSeven);
  }
  EXPECT_EQ(settings.sGet(u"missing"_s, u"True"_s), yes) << "a default is read the same way";
  EXPECT_FALSE(settings.sGet(u"missing"_s).isValid());
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
  person.expectBox(u"Your settings file is read-only and I can't change it. Save cancelled."_s);
  EXPECT_FALSE(settings.SaveSettings(folder.path(u"s.ini"_s)));
  person.expectErrorReport(u"76 - Path not found"_s);
  EXPECT_FALSE(settings.SaveSettings(folder.path(u"missing/s.ini"_s)));
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
