#include "core/infra/Guard.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsScene.h"
#include "core/persist/OlderFiles.h"
#include "core/persist/SceneFile.h"
#include "core/persist/SceneFolder.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// What a file of a generation-3 project holds of an entity.

namespace {

constexpr int kStoredFields = 4;
/// Status of a scene that has none: the first there is.
constexpr qint16 kOutline = 1;

/// What stands twice is logged and stands once.
void addAll(const std::vector<qint32>& ids, const char* module, IDList& into) {
  const Guard guard("ImportQN3", module);
  for (const qint32 id : ids) {
    guard([&] { into.append(id); });
  }
}

}  // namespace

void clsChapter::ImportQN3(const KeyedFile& file, OlderFiles& from) {
  Clear();
  id_ = file.integer32(u"ID"_s);
  Title = file.text(u"Title"_s, u"Chapter"_s);
  Unused = file.boolean(u"Unused"_s);
  DescText = file.decoded(u"Desc"_s);
  from.importText(file, u"DescFile"_s, DescText);
  from.noteLostIDs(file, u"Scenes"_s, toldText(shownText(u"chapter %1"_s), {Title}));
  addAll(file.ids(u"Scenes"_s), "clsChapter", scenes_);
}

void clsCharacter::ImportQN3(const KeyedFile& file, OlderFiles& from) {
  Clear();
  id_ = file.integer32(u"ID"_s);
  Unused = file.boolean(u"Unused"_s);
  title_ = file.text(u"Title"_s);
  FullName = file.text(u"FullName"_s);
  ImageFile = file.text(u"ImageFile"_s);
  AlternateNames = file.text(u"AlternateNames"_s);
  Bio = file.decoded(u"Bio"_s);
  DescText = file.decoded(u"Desc"_s);
  Goals = file.decoded(u"Goals"_s);
  Notes = file.decoded(u"Notes"_s);
  from.importText(file, u"BioFile"_s, Bio);
  from.importText(file, u"DescFile"_s, DescText);
  from.importText(file, u"GoalFile"_s, Goals);
}

void StoryThing::importQN3(const KeyedFile& file, OlderFiles& from, const QString& defaultTitle) {
  Clear();
  id_ = file.integer32(u"ID"_s);
  Title = file.text(u"Title"_s, defaultTitle);
  Unused = file.boolean(u"Unused"_s);
  DescText = file.decoded(u"Desc"_s);
  from.importText(file, u"DescFile"_s, DescText);
}

void clsLocation::ImportQN3(const KeyedFile& file, OlderFiles& from) {
  importQN3(file, from, u"Location"_s);
}

void clsItem::ImportQN3(const KeyedFile& file, OlderFiles& from) {
  importQN3(file, from, u"Item"_s);
}

void clsScene::ImportQN3(const KeyedFile& file, OlderFiles& from, SceneFolder& texts) {
  Clear();
  Title = file.text(u"Title"_s, u"Unnamed Scene"_s);
  id_ = file.integer32(u"ID"_s);
  const QString named = file.text(u"RTFFile"_s).trimmed();
  rtfFilename_ = SceneFolder::bareName(named);
  const bool isRead = SceneFile(*this).load(texts);
  if (!isRead) {
    // Its plan is worth keeping, and the text may turn up.
    textUnread_ = true;
    from.noteMissing(toldText(
        shownText(u"the text of %1 (%2)"_s),
        {calledScene(Title), named.isEmpty() ? toldText(shownText(u"no file is named"_s)) : OldFolder::shown(named)}));
  }
  // The book could not be opened again with such a name: the save gives a new one, and what bears the old one stays.
  if (isRead ? !SceneFolder::isNameForProjectFile(rtfFilename_) : !texts.isFree(rtfFilename_)) {
    rtfFilename_.clear();
    stored_ = {};
  }
  importPlan(file);
  from.importText(file, u"DescFile"_s, DescText);
  for (const QString& list : {u"Characters"_s, u"Locations"_s, u"Items"_s}) {
    from.noteLostIDs(file, list, calledScene(Title));
  }
  importLists(file);
}

void clsScene::importPlan(const KeyedFile& file) {
  DescText = file.decoded(u"Desc"_s);
  Unused = file.boolean(u"Unused"_s);
  BelongsToChID = file.integer32(u"BelongsToChapter"_s);
  Outcome = file.text(u"Outcome"_s);
  Conflict = file.text(u"Conflict"_s);
  Goal = file.text(u"Goal"_s);
  LastsDays = file.integer16(u"Lastsdays"_s);
  LastsHours = file.integer16(u"LastsHours"_s);
  LastsMinutes = file.integer16(u"LastsMinutes"_s);
  Minute = file.integer16(u"Minute"_s);
  Hour = file.integer16(u"Hour"_s);
  Day = file.integer16(u"Day"_s);
  for (int i = 1; i <= kStoredFields; ++i) {
    setField(i, file.integer16(u"Field"_s + QString::number(i)));
  }
  ReactionScene = file.boolean(u"ReactionScene"_s);
  SubPlot = file.boolean(u"SubPlot"_s);
  Status = file.integer16(u"Status"_s);
  if (Status == 0) {
    Status = kOutline;
  }
  lettercount_ = file.integer32(u"LetterCount"_s);
  wordcount_ = file.integer32(u"WordCount"_s);
  wordsStale_ = wordcount_ <= 0;
}

// The viewpoint stays in front, wherever the list has it.
void clsScene::importLists(const KeyedFile& file) {
  const qint32 viewpoint = file.integer32(u"ViewpointID"_s);
  std::vector<qint32> characters = file.ids(u"Characters"_s);
  if (viewpoint > 0) {
    characters.erase(std::remove(characters.begin(), characters.end(), viewpoint), characters.end());
    characters.insert(characters.begin(), viewpoint);
  }
  addAll(characters, "clsScene", characters_);
  addAll(file.ids(u"Locations"_s), "clsScene", locations_);
  addAll(file.ids(u"Items"_s), "clsScene", items_);
}
