#include "core/model/GlobalReplace.h"

#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SaveSeries.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/frmRTFHidden.h"

#include <QLocale>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// What of a scene is replaced in.
struct SceneTexts {
  QByteArray text;
  QString title;
  QString description;

  static SceneTexts of(const clsScene& scene) { return {scene.TextRTF(), scene.Title, scene.DescText}; }
  void storeIn(clsScene& scene) const {
    // The same bytes again would count as a change where there are none.
    if (scene.TextRTF() != text) {
      scene.setTextRTF(text);
    }
    scene.Title = title;
    scene.DescText = description;
  }
};

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
      work.emplace(*g_Project, u"Replacing"_s, true, LongWork::Stop::Offered);
    }
    if (work) {
      work->setCaption(u"Replacing. Scenes done, of "_s + QLocale().toString(g_Project->SceneCount()) + u": "_s, i);
    }
  }
  return outcome;
}

/// False when the scene could not be saved.
bool GlobalReplace::change(clsScene& scene, frmRTFHidden& worker, Outcome& outcome) const {
  const SceneTexts before = SceneTexts::of(scene);
  SceneTexts after = before;
  worker.SetRTF(before.text);
  worker.ReplaceAll(search_, replacement_, caseSensitivity_ == Qt::CaseSensitive);
  const qint32 replaced = worker.ReplaceCount();
  if (replaced > 0) {
    after.text = worker.GetRTF();
  }
  if (caseSensitivity_ == Qt::CaseSensitive) {
    after.title.replace(search_, replacement_);
    after.description.replace(search_, replacement_);
  }
  const bool titled = after.title != before.title || after.description != before.description;
  if (replaced == 0 && !titled) {
    return true;
  }
  after.storeIn(scene);
  scene.Save();
  if (replaced > 0 && isUnsaved(scene)) {
    outcome.unsaved = before.title;
    outcome.cause = scene.SaveFailure();
    before.storeIn(scene);
    if (!outcome.cause.isEmpty()) {
      // Its file holds this text still: nothing is due.
      scene.Save();
    }
    return false;
  }
  // Asked about a file that another program has changed, the user may have taken that.
  const bool kept = replaced > 0 && scene.TextRTF() == after.text;
  outcome.occurrences += kept ? replaced : 0;
  outcome.titles += titled ? 1 : 0;
  outcome.scenes += kept || titled ? 1 : 0;
  return true;
}
