#include "core/model/SceneBefore.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/model/clsScene.h"

#include <tuple>

SceneBefore::SceneBefore(const clsScene& scene)
    : plan_(planOf(scene)),
      hadFile_(!scene.rtfFilename_.isEmpty()),
      takenViewpoint_(plan_.viewpointID),
      textRTF_(scene.textRTF_),
      rtfChanged_(scene.rtfChanged_) {}

void SceneBefore::take(const clsScene& scene) {
  takenViewpoint_ = scene.ViewPointID();
}

SceneBefore::Plan SceneBefore::planOf(const clsScene& scene) {
  return {
      .Title = scene.Title,
      .DescText = scene.DescText,
      .Goal = scene.Goal,
      .Conflict = scene.Conflict,
      .Outcome = scene.Outcome,
      .Notes = scene.Notes,
      .time = {scene.Day, scene.Hour, scene.Minute, scene.LastsDays, scene.LastsHours, scene.LastsMinutes},
      .field = scene.field_,
      .Status = scene.Status,
      .ReactionScene = scene.ReactionScene,
      .SubPlot = scene.SubPlot,
      .viewpointID = scene.ViewPointID(),
  };
}

bool SceneBefore::planDiffers(const clsScene& scene) const {
  return planOf(scene) != plan_;
}

void SceneBefore::giveBack(clsScene& scene) const {
  scene.Title = plan_.Title;
  scene.DescText = plan_.DescText;
  scene.Goal = plan_.Goal;
  scene.Conflict = plan_.Conflict;
  scene.Outcome = plan_.Outcome;
  scene.Notes = plan_.Notes;
  std::tie(scene.Day, scene.Hour, scene.Minute, scene.LastsDays, scene.LastsHours, scene.LastsMinutes) =
      std::tuple_cat(plan_.time);
  scene.field_ = plan_.field;
  scene.Status = plan_.Status;
  scene.ReactionScene = plan_.ReactionScene;
  scene.SubPlot = plan_.SubPlot;
  giveBackViewpoint(scene);
  scene.countsHeld_ = false;
  giveBackText(scene);
  giveBackName(scene);
}

void SceneBefore::giveBackText(clsScene& scene) const {
  if (scene.textRTF_ == textRTF_) {
    return;
  }
  // A save of the book may have written what goes now: then the file is due again.
  const bool wasWritten = !scene.rtfChanged_;
  scene.setTextRTF(textRTF_);
  scene.rtfChanged_ = wasWritten || rtfChanged_;
}

// A book that names a file which isn't there can't be opened.
void SceneBefore::giveBackName(clsScene& scene) const {
  if (hadFile_ || scene.rtfFilename_.isEmpty()) {
    return;
  }
  if (Files().FileExists(scene.RTFFileWithPath())) {
    scene.rtfChanged_ = true;
  } else {
    scene.rtfFilename_.clear();
  }
}

void SceneBefore::giveBackViewpoint(clsScene& scene) const {
  const qint32 now = scene.ViewPointID();
  if (now == plan_.viewpointID || now != takenViewpoint_) {
    return;
  }
  // Who is in the scene is saved apart, and stays.
  if (scene.CharIDs().contains(plan_.viewpointID)) {
    scene.ChangeViewpointByID(plan_.viewpointID);
  }
}
