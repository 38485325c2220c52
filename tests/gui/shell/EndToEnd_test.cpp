// The whole way of one edit: open a project, write in a scene, leave, come back.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "core/text/cSharedHTML.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The lines in which two project files differ, as "old -> new".
QStringList differingLines(const QByteArray& before, const QByteArray& after) {
  const QByteArrayList old = before.split('\n');
  const QByteArrayList now = after.split('\n');
  if (old.size() != now.size()) {
    return {u"the number of lines"_s};
  }
  QStringList differing;
  for (qsizetype i = 0; i < old.size(); ++i) {
    if (old[i] != now[i]) {
      differing.append(QString::fromLatin1(old[i].trimmed() + " -> " + now[i].trimmed()));
    }
  }
  return differing;
}

QString element(const QString& name, int value) {
  return u"<%1>%2</%1>"_s.arg(name, QString::number(value));
}

}  // namespace

class EndToEndTest : public ShellTest {
 protected:
  /// Opens the scene in row `sceneRow` of a chapter by the mouse, types, saves and closes the editor by its own
  /// buttons, waits for the counts, leaves the program and looks at what is on the disk and after a new start.
  void writeAndComeBack(const QString& project, int chapterRow, int sceneRow);

 private:
  void typeInEditor(qint32 id);
  void compareDisk(const QString& project, const QString& sceneFile, const QStringList& countLines);

  QMap<QString, QByteArray> before_;
  const QString typed_ = u" Two words"_s;
};

void EndToEndTest::typeInEditor(qint32 id) {
  ASSERT_TRUE(soon([&] { return editor() != nullptr; }));
  frmEditor& opened = openEditor();
  ASSERT_TRUE(waitUntilActive(opened));
  EXPECT_TRUE(g_Project->SceneByID(id)->Locked());
  auto& text = childOf<RichTextBox>(opened, u"txtMain"_s);
  QTest::keyClick(&text, Qt::Key_End, Qt::ControlModifier);
  QTest::keyClicks(&text, typed_);
  childOf<QAction>(opened, u"mnuSave"_s).trigger();
  opened.close();
  EXPECT_FALSE(g_Project->SceneByID(id)->Locked());
}

void EndToEndTest::compareDisk(const QString& project, const QString& sceneFile, const QStringList& countLines) {
  auto after = filesBelow(folder.path(u"book"_s));
  // What of the scene can't be kept, a style sheet for one, is kept beside the book as it was.
  const QString copies =
      u"Autobackups/%1/%2"_s.arg(QDate::currentDate().toString(Qt::ISODate), QFileInfo(sceneFile).completeBaseName());
  const QString copy = copies + u"_Original.rtf"_s;
  RtfLosses losses;
  readRtf(before_[sceneFile], &losses);
  ASSERT_EQ(after.contains(copy), static_cast<bool>(losses));
  EXPECT_TRUE(!losses || after.take(copy) == before_[sceneFile]);
  const QStringList safetyCopies = QStringList(after.keys()).filter(copies + u"_Scene_"_s);
  ASSERT_EQ(safetyCopies.size(), 1);
  EXPECT_EQ(after.take(safetyCopies.first()), after[sceneFile]);
  EXPECT_EQ(after.keys(), before_.keys());
  const QString projectFile = QFileInfo(project).fileName();
  for (auto file = before_.cbegin(); file != before_.cend(); ++file) {
    if (file.key() == projectFile) {
      EXPECT_EQ(differingLines(*file, after[file.key()]), countLines);
    } else {
      EXPECT_EQ(after[file.key()] == *file, file.key() != sceneFile) << file.key();
    }
  }
  EXPECT_TRUE(rtfToPlainText(after[sceneFile]).endsWith(typed_));
}

void EndToEndTest::writeAndComeBack(const QString& project, int chapterRow, int sceneRow) {
  before_ = filesBelow(folder.path(u"book"_s));
  startWith(project);
  click(list("ListChapters"), chapterRow);
  const qint32 id = list("ListScenes").tagAt(sceneRow);
  const QStringList oldRow = row("ListScenes", sceneRow);
  ASSERT_EQ(oldRow.size(), 7);
  const int words = QLocale().toInt(oldRow[1]);
  // The stored count may be another program's; the edited text is counted by us.
  const int counted = Html().CalcWordCount(g_Project->SceneByID(id)->ConvertedToBodyText());
  const int letters = QLocale().toInt(oldRow[6]);
  const int total = QLocale().toInt(panel("Totalwords").section(u' ', -1));

  doubleClick(list("ListScenes"), sceneRow);
  typeInEditor(id);

  const QString shown = QLocale().toString(counted + 2);
  ASSERT_TRUE(soon([&] { return cell("ListScenes", sceneRow, 1) == shown; }))
      << cell("ListScenes", sceneRow, 1) << " of " << shown;
  EXPECT_EQ(panel("Totalwords"), u"Total words: %L1"_s.arg(total - words + counted + 2));
  endProgram();
  EXPECT_EQ(ended, 1);

  const QString sceneFile = u"RTF/"_s + oldRow[5];
  const int added = static_cast<int>(typed_.size());
  compareDisk(project, sceneFile,
              {element(u"WordCount"_s, words) + u" -> "_s + element(u"WordCount"_s, counted + 2),
               element(u"LetterCount"_s, letters) + u" -> "_s + element(u"LetterCount"_s, letters + added)});

  start();
  EXPECT_EQ(g_Project->FileWithPath, project) << "the last project";
  EXPECT_TRUE(g_Project->SceneByID(id)->ConvertedToBodyText().endsWith(typed_));
  click(list("ListChapters"), chapterRow);
  EXPECT_EQ(cell("ListScenes", sceneRow, 1), shown);
}

TEST_F(EndToEndTest, AnEditInASmallProjectComesBack) {
  QDir().mkpath(folder.path(u"book"_s));
  writeAndComeBack(smallProject(u"book"_s), 1, 0);
}

TEST_F(EndToEndTest, AnEditInANovelComesBack) {
  if (sharedFolder().isEmpty()) {
    GTEST_SKIP() << "the shared novels are not here";
  }
  const QString project = makeNovel(folder.path(u"book"_s), u"pride-and-prejudice"_s);
  ASSERT_FALSE(project.isEmpty());
  startWith(project);
  ASSERT_EQ(list("ListChapters").rowCount(), 61);
  qint32 running = 0;
  for (int i = 0; i < 61; ++i) {
    const auto chapter = chapterAt(i + 1);
    running += chapter->Wordcount(false);
    const QLocale locale;
    EXPECT_EQ(row("ListChapters", i), QStringList({chapter->Title, locale.toString(chapter->Wordcount(false)),
                                                   locale.toString(chapter->SceneCount()), locale.toString(running)}));
  }
  EXPECT_GT(running, 100000);
  endProgram();
  ended = 0;
  writeAndComeBack(project, 17, 1);
}
