#include "core/persist/GlobalReplace.h"

#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SaveSeries.h"
#include "core/model/SceneBefore.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/frmRTFHidden.h"

#include <QLocale>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const Guard kGuard("cmdOK_Click", "frmGlobalReplace");

/// A book without a place of its own keeps what is saved in memory, and that is no failure.
bool isUnsaved(const clsScene& scene) {
  return g_Project->HasPlace() && scene.RTFChanged();
}

}  // namespace

GlobalReplace::GlobalReplace(const QString& search, const QString& replacement, bool caseSensitive)
    : search_(search),
      replacement_(replacement),
      caseSensitivity_(caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive),
      matcher_(search, caseSensitivity_) {}

bool GlobalReplace::concerns(clsScene& scene) const {
  return !search_.isEmpty() && (matcher_.indexIn(scene.ConvertedToBodyText()) >= 0 ||
                                (caseSensitivity_ == Qt::CaseSensitive &&
                                 (scene.Title.contains(search_) || scene.DescText.contains(search_))));
}

bool GlobalReplace::wouldChange() const {
  for (const auto& scene : g_Project->Scenes) {
    if (scene->Locked()) {
      return false;
    }
    if (concerns(*scene)) {
      return true;
    }
  }
  return false;
}

GlobalReplace::Outcome GlobalReplace::run() const {
  Outcome outcome;
  frmRTFHidden worker;
  // The book isn't busy before the first save has asked what there is to ask of a book that hasn't been saved yet.
  std::optional<LongWork> work;
  std::optional<SaveSeries> series;
  // By position: what is yielded to may change the list.
  for (qint32 i = 1; i <= g_Project->SceneCount(); ++i) {
    if (work && work->stopWanted()) {
      outcome.end = End::Stopped;
      break;
    }
    const auto scene = g_Project->SceneByIndex(i);
    if (scene->Locked()) {
      outcome.end = End::Locked;
      break;
    }
    if (concerns(*scene) && !change(*scene, worker, outcome)) {
      outcome.end = End::NotSaved;
      break;
    }
    if (!work && outcome.scenes > 0) {
      series.emplace();
      work.emplace(*g_Project, shownText(u"Replacing"_s), true, LongWork::Stop::Offered);
    }
    if (work) {
      work->setCaption(
          translated(u"Replacing. Scenes done, of %1: %2"_s).arg(QLocale().toString(g_Project->SceneCount())), i);
    }
  }
  return outcome;
}

/// False when the scene could not be saved.
bool GlobalReplace::change(clsScene& scene, frmRTFHidden& worker, Outcome& outcome) const {
  RtfLosses losses;
  worker.SetText(readRtf(scene.TextRTF(), &losses));
  worker.ReplaceAll(search_, replacement_, caseSensitivity_ == Qt::CaseSensitive);
  const qint32 replaced = worker.ReplaceCount();
  const QString called = calledScene(scene.Title);
  ReducedTexts reduced = outcome.reduced;
  if (replaced > 0) {
    outcome.cause = kGuard.causeOf([&] { reduced.keepOriginal(scene, losses); });
    if (!outcome.cause.isEmpty()) {
      outcome.unsaved = called;
      return false;
    }
  }
  const SceneBefore before(scene);
  const bool titled = changePlan(scene);
  if (replaced == 0 && !titled) {
    return true;
  }
  const QByteArray after = replaced > 0 ? worker.GetRTF() : scene.TextRTF();
  if (replaced > 0) {
    scene.setTextRTF(after);
  }
  scene.Save();
  if (replaced > 0 && isUnsaved(scene)) {
    outcome.unsaved = called;
    outcome.cause = scene.SaveFailure();
    before.giveBack(scene);
    if (!outcome.cause.isEmpty()) {
      // Nothing is due any more, and is said to be.
      scene.Save();
    }
    return false;
  }
  // Asked about a file that another program has changed, the user may have taken that.
  const bool kept = replaced > 0 && scene.TextRTF() == after;
  if (kept) {
    outcome.reduced = std::move(reduced);
  }
  outcome.occurrences += kept ? replaced : 0;
  outcome.titles += titled ? 1 : 0;
  outcome.scenes += kept || titled ? 1 : 0;
  return true;
}

bool GlobalReplace::changePlan(clsScene& scene) const {
  if (caseSensitivity_ == Qt::CaseInsensitive) {
    return false;
  }
  const QString title = scene.Title;
  const QString description = scene.DescText;
  scene.Title.replace(search_, replacement_);
  scene.DescText.replace(search_, replacement_);
  return scene.Title != title || scene.DescText != description;
}
