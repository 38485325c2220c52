// Saves in which one call fails: nothing is lost and nothing goes wrong without a word.
//
// All points are tried with QUILLANE_ALL_FAULTS set, else a sample with a fixed seed.

#include "faults/FaultTest.h"
#include "support/Figures.h"

#include <QFileInfo>

#include <array>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

struct Failure {
  int code;
  const char* name;
};

constexpr std::array kFailures{Failure{ENOSPC, "disk full"}, Failure{EIO, "input/output error"},
                               Failure{EACCES, "permission denied"}, Failure{EROFS, "read-only file system"}};

/// What a user knows when the first save is over.
struct FirstSave {
  explicit FirstSave(const QString& said) {
    const QStringList lines = said.split(u'\n');
    for (const QString& line : lines) {
      if (!line.startsWith(u"told: "_s)) {
        result = line;
        break;
      }
      // That a save was cancelled tells nothing of its cause, and a missing library is another matter.
      const bool isCause = !line.contains(u"Save cancelled"_s) && !line.contains(u"The library"_s);
      told = told || isCause;
    }
  }
  bool failed() const { return result.startsWith(u"not saved"_s); }
  bool done() const { return result.startsWith(u"saved, 0 texts"_s); }

  bool told = false;
  QString result;
};

class FailingCalls : public FaultTest {
 protected:
  struct Counts {
    int points = 0;
    /// The first save was done all the same; or its failure was told; or the texts that were not written are known.
    int done = 0;
    int told = 0;
    int due = 0;
    int lost = 0;
    int wholeAtLast = 0;
  };

  void failAt(Means means, const Failure& failure, int point, Counts& counts) {
    const QString when = u"call %1 fails: %2"_s.arg(point).arg(QLatin1String(failure.name));
    const FaultyRun run = save(means, {QString::number(failure.code), point}, u"change"_s);
    EXPECT_FALSE(run.killed) << when;
    EXPECT_EQ(run.status, 0) << when << "; " << run.said;
    const FirstSave first(run.said);
    EXPECT_TRUE(first.told || !first.failed()) << when << ": without a word";
    ++counts.points;
    counts.done += first.done() ? 1 : 0;
    counts.told += first.failed() && first.told ? 1 : 0;
    counts.due += !first.done() && !first.failed() ? 1 : 0;
    // What stood there between the two saves.
    if (QFileInfo::exists(snapshotFolder())) {
      counts.lost += openedIn(snapshotFolder(), when + u", then"_s) == Age::Lost ? 1 : 0;
    }
    const Age age = openedIn(bookFolder(), when);
    EXPECT_TRUE(age == Age::New) << when << ": the next save did not write everything; " << run.said;
    counts.wholeAtLast += age == Age::New ? 1 : 0;
  }
};

}  // namespace

TEST_F(FailingCalls, AreToldAndTheNextSaveWritesEverything) {
  constexpr int kSample = 24;
  const QString anyFailure = QString::number(EIO);
  const Means means = whyNotTraced(anyFailure, home()).isEmpty() ? Means::Traced : Means::Preloaded;
  const int calls = saveWhole(means, anyFailure, u"change"_s);
  ASSERT_GT(calls, 60) << "the calls are not seen";
  for (const Failure& failure : kFailures) {
    Counts counts;
    for (const int point : faultPoints(calls, kSample)) {
      failAt(means, failure, point, counts);
    }
    EXPECT_GT(counts.told + counts.due, 0);
    QStringList cells{QString::fromLatin1(failure.name)};
    EXPECT_EQ(counts.lost, 0) << failure.name;
    for (const int count : {counts.points, counts.done, counts.told, counts.due, counts.lost, counts.wholeAtLast}) {
      cells += QString::number(count);
    }
    noteFigures(u"fail"_s, cells);
  }
}
