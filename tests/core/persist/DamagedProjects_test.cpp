// Any bytes at all, given as a project file: no crash, no hang, and what was read can be written and read again.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Mutations.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DamagedProjects, LoadOrFailButNeverCrashAndKeepWhatTheyGave) {
  const ScratchFolder scratch;
  const QString path = saveSmallProject(scratch.path());
  const QByteArray whole = fileBytes(path);
  const QList<QByteArray> snippets{"<SCENE>",
                                   "</SCENE>",
                                   "<ID>",
                                   "</ID>",
                                   "<CHAPTERS>",
                                   "</SCENES>",
                                   "<Characters>",
                                   "<CharID>",
                                   "99999999999",
                                   "-1",
                                   "<RTFFile>",
                                   "%",
                                   QByteArray("\x00\xFF", 2),
                                   "<![CDATA[",
                                   "<PROJECT>",
                                   "../../",
                                   "2147483647",
                                   "/dev/zero"};
  std::mt19937 random(42);
  int loaded = 0;
  for (int round = 0; round < 1500; ++round) {
    writeFile(path, mutated(whole, random, snippets));
    newProject();
    if (!g_Project->Load(path, false)) {
      EXPECT_EQ(g_Project->SceneCount(), 0);
      continue;
    }
    // Saving waits for the disk, so one in five has to do.
    if (++loaded % 5 != 0) {
      continue;
    }
    const QString again = scratch.path(u"again/Small.qn4"_s);
    g_Project->FileWithPath = again;
    ASSERT_TRUE(g_Project->SaveQN4(true));
    const QByteArray written = fileBytes(again);
    newProject();
    ASSERT_TRUE(g_Project->Load(again, false));
    ASSERT_TRUE(g_Project->SaveQN4(true));
    EXPECT_EQ(fileBytes(again), written) << "round " << round;
  }
  EXPECT_GT(loaded, 300) << "most damage should cost a value and not the book";
  newProject();
}
