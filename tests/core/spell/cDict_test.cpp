#include "core/spell/cDict.h"

#include "SpellFiles.h"
#include "support/FailingDisk.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

bool load(cDict& dict, const QString& path, bool clear = true) {
  bool loaded = false;
  dict.LoadDict(path, clear, loaded);
  EXPECT_EQ(loaded, dict.Loaded);
  EXPECT_EQ(loaded, dict.WordTotal > 0);
  return loaded;
}

}  // namespace

TEST(cDict, ReadsWhateverListItIsGiven) {
  struct Case {
    QByteArray file;
    qint32 total;
    QStringList listed, unlisted;
  };
  for (const Case& known :
       {Case{"dog\r\ncat\r\n", 2, {u"dog"_s, u"DOG"_s, u"Cat"_s}, {u""_s, u"do"_s, u"dogs"_s, u"dog\r"_s}},
        Case{"dog\ncat", 2, {u"dog"_s, u"cat"_s}, {}}, Case{"dog\rcat\n\n\r\n\rcow", 3, {u"cat"_s, u"cow"_s}, {}},
        Case{"Dog\ndog\nDOG\n", 1, {u"dOg"_s}, {}}, Case{" dog\t\n  \n", 1, {u"dog"_s}, {u" "_s}},
        Case{"caf\xE9\n\x80\n", 2, {u"café"_s, u"CAFÉ"_s, u"€"_s}, {u"cafe"_s}},
        Case{"caf\xC3\xA9\n\xD0\x96\xD1\x83\xD0\xBA\n", 2, {u"Café"_s, u"жУк"_s}, {u"cafÃ©"_s}},
        Case{QByteArray("\xEF\xBB\xBF") + "dog\n", 1, {u"dog"_s}, {}}, Case{"", 0, {}, {u""_s, u"dog"_s}},
        Case{"\r\n\r\n", 0, {}, {u""_s}}, Case{QByteArray("\0\0dog\0\ncat\0x\n", 13), 2, {u"dog"_s}, {u"cat"_s}},
        Case{QByteArray(300'000, 'x') + "\ndog", 2, {u"dog"_s, QString(300'000, u'X')}, {QString(299'999, u'x')}},
        Case{"caf\xC3\ndog\xFF\xFE\n", 2, {u"cafÃ"_s, u"dogÿþ"_s}, {u"dog"_s}}}) {
    const ScratchFolder folder;
    put(folder.path(u"list.txt"_s), known.file);
    cDict dict;
    EXPECT_EQ(load(dict, folder.path(u"list.txt"_s)), known.total > 0);
    EXPECT_EQ(dict.WordTotal, known.total) << known.file.left(30).constData();
    for (const QString& word : known.listed) {
      EXPECT_TRUE(dict.WordExists(word)) << word.left(30).toStdString();
    }
    for (const QString& word : known.unlisted) {
      EXPECT_FALSE(dict.WordExists(word)) << word.left(30).toStdString();
    }
  }
}

/// With line ends that don't tell beforehand how many there are.
TEST(cDict, AMillionWordsAreAllFoundAndNoOther) {
  constexpr int kWords = 1'000'000;
  const ScratchFolder folder;
  QByteArray file;
  for (int i = 0; i < kWords; ++i) {
    file += "Word" + QByteArray::number(i * 2) + '\r';
  }
  put(folder.path(u"list.txt"_s), file);
  cDict dict;
  ASSERT_TRUE(load(dict, folder.path(u"list.txt"_s)));
  EXPECT_EQ(dict.WordTotal, kWords);
  int wrong = 0;
  for (int i = 0; i < 2 * kWords; ++i) {
    wrong += dict.WordExists(u"word"_s + QString::number(i)) != (i % 2 == 0) ? 1 : 0;
  }
  EXPECT_EQ(wrong, 0);
}

TEST(cDict, WhatWasLoadedStaysUnlessItIsToBeCleared) {
  const ScratchFolder folder;
  put(folder.path(u"a.txt"_s), "dog\n");
  put(folder.path(u"empty.txt"_s), "");
  cDict dict;
  EXPECT_FALSE(load(dict, folder.path(u"none.txt"_s)));
  EXPECT_TRUE(load(dict, folder.path(u"a.txt"_s), false));
  EXPECT_TRUE(load(dict, folder.path(u"empty.txt"_s), false));
  EXPECT_TRUE(load(dict, folder.path(u"none.txt"_s), false));
  EXPECT_TRUE(dict.WordExists(u"dog"_s));
  EXPECT_FALSE(load(dict, folder.path(u"empty.txt"_s), true));
  EXPECT_FALSE(dict.WordExists(u"dog"_s));
}

TEST(cDict, NewWordsStandBehindWhatTheFileHolds) {
  struct Case {
    QByteArray before;
    QStringList words;
    QByteArray after;
  };
  for (const Case& known :
       {Case{"dog\r\n", {u"cat"_s}, "dog\r\ncat\r\n"}, Case{"dog", {u"cat"_s, u"Cat"_s, u"DOG"_s}, "dog\r\ncat\r\n"},
        Case{"", {u"cat"_s, u""_s, u"  "_s}, "cat\r\n"}, Case{"dog\n", {u"dog"_s}, "dog\n"},
        Case{"caf\xE9\n", {u"naïve"_s}, "caf\xE9\nna\xEFve\r\n"},
        Case{"caf\xE9\n", {u"жук"_s}, "caf\xC3\xA9\n\xD0\xB6\xD1\x83\xD0\xBA\r\n"},
        Case{"caf\xC3\xA9\n", {u"naïve"_s}, "caf\xC3\xA9\nna\xC3\xAFve\r\n"},
        Case{"dog\n", {u"café"_s}, "dog\ncaf\xC3\xA9\r\n"}, Case{"", {u"two\r\nlines"_s}, "two\r\nlines\r\n"}}) {
    const ScratchFolder folder;
    const QString path = folder.path(u"Custom.txt"_s);
    put(path, known.before);
    cDict dict;
    load(dict, path);
    EXPECT_EQ(dict.AddNewWords(known.words), QString());
    EXPECT_EQ(contentOf(path), known.after);
    cDict again;
    load(again, path);
    EXPECT_EQ(again.WordTotal, dict.WordTotal);
    for (const QString& word : known.words) {
      EXPECT_EQ(again.WordExists(word), dict.WordExists(word)) << word.toStdString();
    }
  }
}

TEST(cDict, AFileAndItsFolderAreMadeForTheFirstWord) {
  const ScratchFolder folder;
  cDict dict;
  EXPECT_EQ(dict.AddNewWord(u"cat"_s), QString());
  EXPECT_FALSE(dict.WordExists(u"cat"_s)) << "without a file name nothing is taken";
  load(dict, folder.path(u"Dict/Custom.txt"_s));
  EXPECT_EQ(dict.AddNewWord(u"cat"_s), QString());
  EXPECT_TRUE(dict.Loaded);
  EXPECT_EQ(contentOf(folder.path(u"Dict/Custom.txt"_s)), "cat\r\n");
}

TEST(cDict, WordsOfAnotherCopyOfTheProgramStay) {
  const ScratchFolder folder;
  const QString path = folder.path(u"Custom.txt"_s);
  put(path, "dog\r\n");
  cDict mine;
  cDict other;
  load(mine, path);
  load(other, path);
  mine.AddNewWord(u"cat"_s);
  other.AddNewWord(u"cow"_s);
  mine.AddNewWord(u"pig"_s);
  EXPECT_EQ(contentOf(path), "dog\r\ncat\r\ncow\r\npig\r\n");
}

TEST(cDict, AWordThatCannotBeWrittenCountsAndIsWrittenWithTheNext) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const ScratchFolder folder;
  const QString path = folder.path(u"Custom.txt"_s);
  put(path, "dog\r\n");
  cDict dict;
  load(dict, path);
  {
    const FailingDisk full;
    EXPECT_NE(dict.AddNewWord(u"cat"_s), QString());
  }
  EXPECT_TRUE(dict.HasUnsavedWords());
  EXPECT_EQ(contentOf(path), "dog\r\n");
  load(dict, path);
  EXPECT_TRUE(dict.WordExists(u"cat"_s)) << "also when the list is read anew";
  EXPECT_EQ(dict.AddNewWord(u"cow"_s), QString());
  EXPECT_FALSE(dict.HasUnsavedWords());
  EXPECT_EQ(contentOf(path), "dog\r\ncat\r\ncow\r\n");
}

TEST(cDict, AFileThatCannotBeReadIsNotWrittenOver) {
  const ScratchFolder folder;
  const QString path = folder.path(u"Custom.txt"_s);
  put(path, "dog\r\n");
  QFile::setPermissions(path, QFileDevice::WriteOwner);
  cDict dict;
  {
    const OrdinaryUser user;
    if (!user.limited()) {
      GTEST_SKIP();
    }
    EXPECT_FALSE(load(dict, path));
    EXPECT_NE(dict.AddNewWord(u"cat"_s), QString());
  }
  QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  EXPECT_EQ(contentOf(path), "dog\r\n");
  EXPECT_EQ(dict.SaveNewWords(), QString());
  EXPECT_EQ(contentOf(path), "dog\r\ncat\r\n");
}
