// A disk that is really full: a small file system in memory, with room for a part of what a save writes.

#include "faults/BookAge.h"
#include "faults/ChangedBook.h"
#include "faults/SmallDisk.h"
#include "support/Figures.h"
#include "support/ListeningToolkit.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

#include <filesystem>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kPage = 4096;
constexpr qint64 kDisk = 1024 * kPage;
constexpr qint64 kLongText = 60 * kPage;

class FullDisk : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!disk_.refused().isEmpty()) {
      GTEST_SKIP() << "a file system can't be mounted here: " << disk_.refused().toStdString();
    }
    installToolkit(&screen_);
    makeLargerProject(12, 3);
    before_ = contentOfProject();
    g_Project->FileWithPath = scratch_.path(u"original/Small.qn4"_s);
    ASSERT_TRUE(g_Project->SaveQN4(false));
    newProject();
  }
  void TearDown() override {
    newProject();
    installToolkit(nullptr);
  }

  /// The changes of a writer; the text of the scene at this position is so long.
  void loadAndChange(qint64 longText, qint32 position) {
    QDir(book()).removeRecursively();
    copy(scratch_.path(u"original"_s), book());
    ASSERT_TRUE(g_Project->Load(book() + u"/Small.qn4"_s, false));
    changeBook();
    if (longText > 0) {
      g_Project->SceneByIndex(position)->setTextRTF(simpleRtf(QByteArray(longText, 'x')));
    }
    after_ = contentOfProject();
  }

  /// Saves with room for so many bytes; false when it fitted. Whatever did not fit is told or known to be due, a book
  /// stands there that opens, and with room again the next save writes everything.
  bool failsWithRoom(qint64 room) {
    EXPECT_TRUE(disk_.fill(room));
    screen_.told.clear();
    const bool done = g_Project->SaveQN4(true);
    const bool due = g_Project->UnsavedTexts() > 0;
    EXPECT_TRUE(done || screen_.told.join(u' ').contains(u"Disk full"_s)) << room << ": " << screen_.told.join(u' ');
    EXPECT_EQ(contentOfProject(), after_) << room << ": lost from memory";
    copy(book(), snapshot());
    disk_.makeRoom();
    EXPECT_TRUE(g_Project->SaveQN4(true)) << room << ": " << screen_.told.join(u' ');
    EXPECT_TRUE(opened(book()) == Age::New) << room;
    const Age left = opened(snapshot());
    EXPECT_TRUE(done ? left == (due ? Age::TextsBehind : Age::New) : left == Age::Old || left == Age::TextsAhead)
        << room;
    return !done || due;
  }

  /// One page of room more each time, until everything fits.
  void saveWithEveryRoom(qint64 longText, qint32 position, const QString& title) {
    int sizes = 0;
    int told = 0;
    qint64 room = 0;
    for (;; room += kPage) {
      ASSERT_NO_FATAL_FAILURE(loadAndChange(longText, position));
      if (!failsWithRoom(room)) {
        break;
      }
      ++sizes;
      told += screen_.told.isEmpty() ? 0 : 1;
      ASSERT_LT(room, kDisk / 2);
    }
    EXPECT_GT(sizes, 10);
    noteFigures(u"disk"_s, {title, QString::number(sizes), QString::number(told), QString::number(sizes - told)});
  }

  QString book() const { return disk_.path() + u"/book"_s; }

 private:
  QString snapshot() const { return scratch_.path(u"snapshot"_s); }

  static void copy(const QString& from, const QString& to) {
    QDir(to).removeRecursively();
    std::filesystem::copy(from.toStdString(), to.toStdString(), std::filesystem::copy_options::recursive);
  }

  Age opened(const QString& folder) {
    newProject();
    QString wrong = u"it does not open"_s;
    const bool loaded = g_Project->Load(folder + u"/Small.qn4"_s, false);
    const Age age = loaded ? ageOf(contentOfProject(), before_, after_, wrong) : Age::Lost;
    EXPECT_TRUE(age != Age::Lost) << wrong;
    return age;
  }

  SmallDisk disk_{kDisk};
  ScratchFolder scratch_;
  ListeningToolkit screen_;
  BookContent before_;
  BookContent after_;
};

}  // namespace

TEST_F(FullDisk, IsToldAndTheNextSaveWritesEverything) {
  saveWithEveryRoom(0, 1, u"Short texts and a longer plan"_s);
}

TEST_F(FullDisk, KeepsALongTextDue) {
  saveWithEveryRoom(kLongText, 1, u"A text longer than the plan"_s);
}

// A plan that names a file that isn't there would keep the whole book from opening.
TEST_F(FullDisk, KeepsTheOldPlanWhileANewSceneHasNoFile) {
  saveWithEveryRoom(kLongText, 42, u"The text of a new scene, longer than the plan"_s);
}
