#include "core/reports/modPrintWorkSchedule.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QLocale>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstLevel = 2;
constexpr int kLastLevel = 5;
/// Who asks later than this doesn't begin today.
constexpr int kLateHour = 22;
constexpr double kBelowLine = 75;

/// A scene that is used, and where it stands.
struct Standing {
  std::shared_ptr<clsChapter> chapter;
  std::shared_ptr<clsScene> scene;
  qint32 number = 0;
};

/// How many scenes of a status a day takes, and how many days take one more.
struct Quota {
  qint32 perDay = 0;
  qint32 extra = 0;
};

/// What a day has been given so far.
struct Batch {
  qint32 scenes = 0;
  qint64 words = 0;
  bool extraTaken = false;
};

bool isLate(const QDateTime& time) {
  return time.time().hour() >= kLateHour;
}

std::vector<Standing> usedScenes(const ReportJob& job) {
  ReportJob whole = job;
  whole.chapters = {1, g_Project->ChapterCount()};
  std::vector<Standing> used;
  Reports::eachUsedChapter(whole, [&used](const clsChapter& chapter, qint32 place) {
    Reports::eachUsedScene(chapter, [&](const clsScene&, qint32 number, bool) {
      used.push_back({g_Project->ChapterByIndex(place), chapter.SceneByIndex(number), number});
    });
  });
  return used;
}

QString sceneLine(const Standing& standing) {
  clsScene& scene = *standing.scene;
  const QString chapter = QString(standing.chapter->Title).replace(u"Chapter"_s, u"Ch"_s, Qt::CaseSensitive);
  return translated(u"%1.%2: (%3w, %4) %5"_s)
      .arg(chapter, QString::number(standing.number), QString::number(scene.Wordcount()), shownViewpoint(scene),
           scene.Title);
}

class WorkSchedule {
 public:
  WorkSchedule(const ReportJob& job, const QDateTime& now)
      : progress_(job.progress),
        flow_(job.measure, job.state),
        startsTomorrow_(isLate(now)),
        start_(Clock::dayNumber(now.date()) + (startsTomorrow_ ? 1 : 0)),
        scenes_(usedScenes(job)) {
    takeCensus();
  }

  PrintDocument print(int first, int last) {
    flow_.newNumberedPage();
    printHead();
    for (int level = first; level <= last; ++level) {
      printLevel(level);
    }
    return Reports::finished(Reports::titleOf(translated(u"Work schedule"_s)), flow_);
  }

 private:
  static size_t below(int level) { return static_cast<size_t>(level) - 1; }

  /// A status that the ladder lacks is logged; such a scene counts nowhere.
  void takeCensus() {
    const Guard guard("PrintWorkSchedule", "modPrintWorkSchedule");
    for (const Standing& standing : scenes_) {
      guard([&] {
        const auto status = static_cast<size_t>(standing.scene->Status);
        if (status >= count_.size()) {
          throw RuntimeError(RuntimeError::OutOfBounds);
        }
        ++count_[status];
      });
    }
  }

  /// A deadline that has passed leaves one day for all.
  Quota quotaFor(int level) const {
    const qint32 scenes = count_[below(level)];
    // The day behind the deadline takes scenes too.
    const qint32 days = g_Project->DaysLeft(level, start_) + 1;
    if (scenes < 1 || days < 1) {
      return {scenes, 0};
    }
    return {scenes / days, scenes % days};
  }

  void endLine() {
    flow_.spacing();
    flow_.moveDown(kBelowLine);
  }

  void printHead() {
    const QString date = Dates().ShortFormatDate(Clock::dateOf(start_));
    const QString begin =
        startsTomorrow_ ? translated(u"Project work schedule.  (Starting date set to %1 because it's after 10pm)"_s)
                        : translated(u"Project work schedule.  (Starting date %1)"_s);
    flow_.PrintRuns({{begin.arg(date), true}});
    flow_.spacing();
    const qint32 completion = g_Project->DeadlineDate(kLastLevel);
    flow_.PrintText(completion == 0
                        ? translated(u"Days left until project completion date: no date set"_s)
                        : translated(u"Days left until project completion date: %1"_s).arg(completion - start_));
    flow_.spacing();
    QString standing;
    for (int status = 1; status <= kLastLevel; ++status) {
      standing +=
          u"  "_s + translated(g_StatusNames.value(status)) + u" (%1) "_s.arg(count_[static_cast<size_t>(status)]);
    }
    flow_.PrintRuns({{translated(u"Needed at each status level: "_s), true}, {standing, false}});
    flow_.spacing();
  }

  void printLevel(int level) {
    Quota quota = quotaFor(level);
    qint32 left = count_[below(level)];
    qint32 day = 0;
    Batch batch;
    if (left > 0) {
      flow_.blankLine();
      flow_.PrintBold(
          translated(u"You need to turn the following scenes into %1"_s).arg(translated(g_StatusNames.value(level))));
      endLine();
    }
    for (const Standing& standing : scenes_) {
      if (standing.scene->Status != level - 1) {
        continue;
      }
      progress_.step(shownText(u"Laying out scene %1"_s), ++laidOut_);
      flow_.PrintText(sceneLine(standing));
      endLine();
      batch.words += standing.scene->Wordcount();
      ++batch.scenes;
      if (--left == 0 || isFull(batch, quota)) {
        printDay(level, day++, batch.words);
        batch = {};
      }
    }
  }

  /// A full day takes one scene more while there are some to be spread.
  static bool isFull(Batch& batch, Quota& quota) {
    if (batch.scenes < quota.perDay) {
      return false;
    }
    if (quota.extra == 0 || batch.extraTaken) {
      return true;
    }
    batch.extraTaken = true;
    --quota.extra;
    return false;
  }

  void printDay(int level, qint32 day, qint64 words) {
    const QDate date = Clock::dateOf(qMax(g_Project->DeadlineStartDate(level), start_) + day);
    flow_.PrintRuns({{translated(u"--- Complete by %1"_s).arg(formatByPattern(date, u"DDD"_s, QLocale())), true},
                     {u' ' + Dates().ShortFormatDate(date) + QString(30, u'-') +
                          translated(u"(%1 words)"_s).arg(words) + QString(10, u'-'),
                      false}});
    endLine();
  }

  PrintProgress& progress_;
  qint32 laidOut_ = 0;
  PrintFlow flow_;
  bool startsTomorrow_;
  qint32 start_;
  std::vector<Standing> scenes_;
  /// The used scenes at each status.
  std::array<qint32, kLastLevel + 1> count_{};
};

}  // namespace

PrintDocument PrintWorkSchedule(const ReportJob& job, int item) {
  const bool isComplete = item == 0;
  return WorkSchedule(job, Clock::now()).print(isComplete ? kFirstLevel : item + 1, isComplete ? kLastLevel : item + 1);
}
