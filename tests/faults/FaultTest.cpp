#include "faults/FaultTest.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "support/ListeningToolkit.h"
#include "support/SampleProject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

void FaultTest::SetUp() {
  constexpr int kChapters = 12;
  constexpr int kScenesEach = 3;
  ASSERT_TRUE(scratch_.isValid() && QDir().mkpath(home()));
  for (const QString& library : {u"qnHtml.dll"_s, u"qnHtml2.dll"_s, u"Hash.dll"_s}) {
    QFile::link(QCoreApplication::applicationDirPath() + u'/' + library, home() + u'/' + library);
  }
  makeLargerProject(kChapters, kScenesEach);
  before_ = contentOfProject();
  const QString folder = scratch_.filePath(u"original"_s);
  g_Project->FileWithPath = folder + u"/Small.qn4"_s;
  ASSERT_TRUE(g_Project->SaveQN4(false));
  newProject();
  book_ = filesBelow(folder);
  ASSERT_EQ(before_.texts.size(), 41);
}

void FaultTest::layOut() const {
  QDir(snapshotFolder()).removeRecursively();
  QDir(bookFolder()).removeRecursively();
  QDir().mkpath(bookFolder() + u"/RTF"_s);
  for (auto file = book_.cbegin(); file != book_.cend(); ++file) {
    writeFile(bookFolder() + u'/' + file.key(), *file);
  }
}

FaultyRun FaultTest::save(Means means, const Fault& fault, const QString& what) {
  layOut();
  QStringList arguments{what, bookFolder() + u"/Small.qn4"_s};
  if (fault.how != u"kill"_s) {
    arguments += snapshotFolder();
  }
  return saveWithFault(means, fault, bookFolder(), home(), arguments);
}

int FaultTest::saveWhole(Means means, const QString& how, const QString& what) {
  // Settings and log are there from the first run on, and that makes a difference in the number of calls.
  save(means, {how}, what);
  const FaultyRun run = save(means, {how}, what);
  EXPECT_EQ(run.status, 0) << run.said;
  EXPECT_EQ(run.said, u"saved, 0 texts due\n"_s) << "nothing is told when nothing fails";
  EXPECT_TRUE(g_Project->Load(bookFolder() + u"/Small.qn4"_s, false));
  after_ = contentOfProject();
  newProject();
  EXPECT_NE(after_, before_);
  return run.calls;
}

Age FaultTest::openedIn(const QString& folder, const QString& when) {
  ListeningToolkit screen;
  installToolkit(&screen);
  QString wrong = u"it does not open"_s;
  const bool opened = g_Project->Load(folder + u"/Small.qn4"_s, false);
  const Age age = opened ? ageOf(contentOfProject(), before_, after_, wrong) : Age::Lost;
  EXPECT_EQ(screen.told, QStringList()) << when;
  EXPECT_TRUE(age != Age::Lost) << when << ": " << wrong;
  newProject();
  installToolkit(nullptr);
  return age;
}
