// A process that is killed while a scene is written: no word is lost that stood there when the timer of the copies came
// round last, and the book is whole.
//
// All points are tried with QUILLANE_ALL_FAULTS set, else a sample with a fixed seed.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/BackupsView.h"
#include "core/text/Rtf.h"
#include "faults/FaultyProcess.h"
#include "support/ListeningToolkit.h"
#include "support/SampleProject.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class KilledEditor : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(scratch_.isValid() && QDir().mkpath(home()));
    for (const QString& library : {u"qnHtml.dll"_s, u"qnHtml2.dll"_s, u"Hash.dll"_s}) {
      QFile::link(QCoreApplication::applicationDirPath() + u'/' + library, home() + u'/' + library);
    }
    saveSmallProject(book());
    newProject();
    files_ = filesBelow(book());
  }

  FaultyRun edit(const Fault& fault, const QString& mode) {
    QDir(book()).removeRecursively();
    for (auto file = files_.cbegin(); file != files_.cend(); ++file) {
      QDir().mkpath(QFileInfo(book() + u'/' + file.key()).path());
      writeFile(book() + u'/' + file.key(), *file);
    }
    QStringList arguments{book() + u"/Small.qn4"_s};
    if (!mode.isEmpty()) {
      arguments += mode;
    }
    return saveWithFault(Means::Preloaded, fault, book(), home(), arguments, u"edit_a_scene"_s);
  }

  /// The number of the last word; the words before it are all there, else -1.
  static int wordsIn(const QString& text) {
    QString expected = u"one two three"_s;
    for (int number = 0; number < 10; ++number) {
      expected += number == 0 ? QString() : u" w%1"_s.arg(number);
      if (text.trimmed() == expected) {
        return number;
      }
    }
    ADD_FAILURE() << "no text that was ever written: " << text.toStdString();
    return -1;
  }

  /// The number of the last word that the timer has seen.
  static int keptBy(const QString& said) {
    const QStringList lines = said.split(u'\n', Qt::SkipEmptyParts).filter(u"kept "_s);
    return lines.isEmpty() ? 0 : lines.last().mid(5).toInt();
  }

  void expectWordsUpTo(int kept) {
    ListeningToolkit screen;
    installToolkit(&screen);
    ASSERT_TRUE(g_Project->Load(book() + u"/Small.qn4"_s, false));
    EXPECT_EQ(screen.told, QStringList());
    const int inFile = wordsIn(sceneAt(1)->ConvertedToBodyText());
    const QDateTime saved = QFileInfo(sceneAt(1)->RTFFileWithPath()).lastModified();
    int inCopies = 0;
    bool isYounger = false;
    QDirIterator copies(book() + u"/Autobackups"_s, {u"RTF_00001_Scene_1*.rtf"_s}, QDir::Files,
                        QDirIterator::Subdirectories);
    while (copies.hasNext()) {
      inCopies = std::max(inCopies, wordsIn(rtfToPlainText(fileBytes(copies.next()))));
      // Nobody's timer comes round in the very millisecond of a save; here it may.
      isYounger = isYounger || copies.fileInfo().lastModified() > saved;
    }
    EXPECT_GE(std::max(inFile, inCopies), kept);
    EXPECT_EQ(youngerCopies(*g_Project).size(), isYounger && inCopies > inFile ? 1 : 0)
        << "what is offered at the next start";
    newProject();
    installToolkit(nullptr);
  }

  void killAtPoints(const QString& mode) {
    edit({u"kill"_s, 0}, mode);
    const FaultyRun whole = edit({u"kill"_s, 0}, mode);
    ASSERT_EQ(whole.said, u"kept 1\nkept 2\nkept 3\nkept 4\nkept 5\nkept 6\n"_s);
    ASSERT_GT(whole.calls, 30) << "the calls are not seen";
    expectWordsUpTo(6);
    constexpr int kSample = 16;
    for (const int point : faultPoints(whole.calls, kSample)) {
      SCOPED_TRACE("killed at change " + std::to_string(point) + " of " + std::to_string(whole.calls));
      const FaultyRun run = edit({u"kill"_s, point}, mode);
      EXPECT_TRUE(run.killed);
      expectWordsUpTo(keptBy(run.said));
    }
  }

 private:
  QString book() const { return scratch_.filePath(u"book"_s); }
  QString home() const { return scratch_.filePath(u"home"_s); }

  QTemporaryDir scratch_{quickFolder() + u"/quillane-editor-XXXXXX"_s};
  QMap<QString, QByteArray> files_;
};

}  // namespace

TEST_F(KilledEditor, LosesNoMoreThanWhatWasTypedSinceTheLastCopy) {
  killAtPoints({});
}

TEST_F(KilledEditor, LosesNoMoreWithFilesAtIntervals) {
  killAtPoints(u"sequential"_s);
}
