#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"
#include "core/persist/DiskConflicts.h"
#include "core/persist/OlderCopy.h"
#include "core/persist/ProjectSaver.h"

using namespace Qt::StringLiterals;

// The questions that stand before a save to the place that a book has. None of them changes a file but what the answer
// wants kept.

ProjectSaver::Way ProjectSaver::wayTo(Form form) {
  if (form == Form::Folder && project_.readOnly_ && project_.IsInOwnFolder()) {
    toolkit().MsgBox(u"The book in this folder was opened read-only. Please choose a different folder."_s);
    return Way::AskForAnother;
  }
  for (const auto way : {&ProjectSaver::wayPastLostFolder, &ProjectSaver::wayPastIncompleteFile}) {
    if (const Way found = (this->*way)(); found != Way::GoOn) {
      return found;
    }
  }
  if (form == Form::SingleFile) {
    return wayPastOthersChanges(form);
  }
  const Way way = wayPastNewerBook();
  return way == Way::GoOn && !overOthers_ ? wayPastOthersChanges(form) : way;
}

// A stick that was pulled out: what is made in its place would be a book of a few scenes.
ProjectSaver::Way ProjectSaver::wayPastLostFolder() const {
  const auto isLost = [this] {
    // Where a stick was mounted its empty folder may be left.
    return !Files().FolderExists(project_.Path()) ||
           (!Files().FileExists(project_.storedIn_) && !Files().FolderExists(project_.RTFFolder()));
  };
  while (project_.IsInOwnFolder() && isLost()) {
    const int choice =
        toolkit().Choose({translated(u"The book's folder isn't there any more:\n%1\n\n"
                                     "If it is on a stick or in a network, please bring it back and try again."_s)
                              .arg(project_.Path()),
                          {shownText(u"Try again"_s), shownText(u"Save somewhere else"_s)}});
    if (choice != 0) {
      return choice == 1 ? Way::AskForAnother : Way::GiveUp;
    }
  }
  return Way::GoOn;
}

// What was cut off may still be wanted, if only to be mended by hand.
ProjectSaver::Way ProjectSaver::wayPastIncompleteFile() const {
  const bool mayReplace =
      project_.incompleteFile_.isEmpty() || project_.incompleteFile_ != project_.FileWithPath ||
      toolkit().MsgBox(
          u"The project file was incomplete when it was opened. Do you want to save over it? If not, you "
          "can choose another place for the book as it is now."_s,
          Buttons::NoUnlessYes) == Answer::Yes;
  return mayReplace ? Way::GoOn : Way::AskForAnother;
}

ProjectSaver::Way ProjectSaver::wayPastNewerBook() {
  switch (OlderCopy(project_).settle()) {
    case OlderCopy::Answer::NothingToAsk:
      return Way::GoOn;
    case OlderCopy::Answer::Replace:
      // What stood in the book's own folder is known: a change since then is asked about.
      overOthers_ = !project_.IsInOwnFolder();
      return Way::GoOn;
    case OlderCopy::Answer::NewName:
      sharesFolder_ = true;
      return Way::AskForAnother;
    default:
      return Way::GiveUp;
  }
}

ProjectSaver::Way ProjectSaver::wayPastOthersChanges(Form form) {
  DiskConflicts conflicts(project_);
  conflicts.lookAtProjectFile();
  if (!conflicts.isEmpty() && isUnchanged(form)) {
    leavesFile_ = true;
    conflicts.clear();
  }
  if (form == Form::Folder) {
    for (const auto& scene : project_.Scenes) {
      conflicts.lookAt(*scene);
    }
  }
  switch (conflicts.settle(DiskConflicts::Askers::Project)) {
    case DiskConflicts::Outcome::GoOn:
      return Way::GoOn;
    case DiskConflicts::Outcome::Reload:
      // Texts of ours that stand against nothing are kept in their files.
      if (form == Form::Folder) {
        project_.Scenes.SaveScenesText(false);
      }
      project_.reloadWanted_ = true;
      return Way::GiveUp;
    default:
      return Way::GiveUp;
  }
}
