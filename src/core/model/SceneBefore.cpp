#include "core/model/SceneBefore.h"

#include "core/model/clsScene.h"

#include <tuple>

SceneBefore::SceneBefore(const clsScene& scene)
    : title_(scene.Title),
      descText_(scene.DescText),
      goal_(scene.Goal),
      conflict_(scene.Conflict),
      outcome_(scene.Outcome),
      notes_(scene.Notes),
      time_{scene.Day, scene.Hour, scene.Minute, scene.LastsDays, scene.LastsHours, scene.LastsMinutes},
      field_(scene.field_),
      status_(scene.Status),
      reactionScene_(scene.ReactionScene),
      subPlot_(scene.SubPlot),
      viewpointID_(scene.ViewPointID()),
      textRTF_(scene.textRTF_),
      rtfChanged_(scene.rtfChanged_) {}

void SceneBefore::giveBack(clsScene& scene) const {
  scene.Title = title_;
  scene.DescText = descText_;
  scene.Goal = goal_;
  scene.Conflict = conflict_;
  scene.Outcome = outcome_;
  scene.Notes = notes_;
  std::tie(scene.Day, scene.Hour, scene.Minute, scene.LastsDays, scene.LastsHours, scene.LastsMinutes) =
      std::tuple_cat(time_);
  scene.field_ = field_;
  scene.Status = status_;
  scene.ReactionScene = reactionScene_;
  scene.SubPlot = subPlot_;
  giveBackViewpoint(scene);
  scene.countsHeld_ = false;
  if (scene.textRTF_ == textRTF_) {
    return;
  }
  // A save of the book may have written what goes now: then the file is due again.
  const bool wasWritten = !scene.rtfChanged_;
  scene.setTextRTF(textRTF_);
  scene.rtfChanged_ = wasWritten || rtfChanged_;
}

void SceneBefore::giveBackViewpoint(clsScene& scene) const {
  const qint32 now = scene.ViewPointID();
  if (now == viewpointID_) {
    return;
  }
  // Who is in the scene is saved apart, and stays.
  if (scene.CharIDs().contains(viewpointID_)) {
    scene.ChangeViewpointByID(viewpointID_);
  }
}
