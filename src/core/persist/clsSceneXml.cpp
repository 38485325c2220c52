#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsScene.h"
#include "core/persist/ElementWriter.h"
#include "core/persist/ReadFields.h"
#include "core/persist/SceneFolder.h"
#include "core/persist/modConstXML.h"
#include "core/text/cSharedHTML.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kStoredFields = 4;

}  // namespace

void clsScene::DataAsXML(QByteArray& out, bool singleFile) {
  using namespace modConstXML;
  // The text that goes along is what counts there.
  countsHeld_ = countsHeld_ && !singleFile;
  ElementWriter element(out, kScene);
  element.integer(kID, ID());
  element.text(kTitle, Title);
  element.boolean(kUnused, Unused);
  element.integer(kBelongsToChID, BelongsToChID);
  element.text(kOutcome, Outcome);
  element.text(kGoal, Goal);
  element.text(kConflict, Conflict);
  element.integerUnlessZero(kMinute, Minute);
  element.integerUnlessZero(kHour, Hour);
  element.integerUnlessZero(kDay, Day);
  element.integerUnlessZero(kLastsMinutes, LastsMinutes);
  element.integerUnlessZero(kLastsHours, LastsHours);
  element.integerUnlessZero(kLastsDays, LastsDays);
  element.raw(kRTFFile, rtfFilename_);
  element.text(kDesc, DescText);
  element.textUnlessEmpty(kTags, Tags);
  element.text(kNotes, Notes);
  for (int i = 1; i <= kStoredFields; ++i) {
    if (Field(i) == 0) {
      setField(i, 1);
    }
    element.integer(kField[i - 1], Field(i));
  }
  element.booleanIfTrue(kReactionScene, ReactionScene);
  element.booleanIfTrue(kSubPlot, SubPlot);
  element.integer(kStatus, Status);
  if (Wordcount() > 0) {
    element.integer(kWordCount, Wordcount());
  }
  if (Lettercount() > 0) {
    element.integer(kLetterCount, Lettercount());
  }
  element.list(kSceneCharacters, kCharID, characters_);
  element.list(kSceneLocations, kLocID, locations_);
  element.list(kSceneItems, kItemID, items_);
  if (singleFile && !textUnread_) {
    element.base64(kSceneRTF, kCData, Html().encodedMime64(textRTF_));
  } else if (singleFile && !undecodedRTF_.isEmpty()) {
    element.base64(kSceneRTF, kCData, undecodedRTF_);
  }
}

void clsScene::CreateFromXML(const TagView& element) {
  Clear();
  readFields(element);
  readLists(element);
  readRTF(element);
}

void clsScene::readFields(const TagView& element) {
  using namespace modConstXML;
  const Guard guard("CreateFromXML", "clsScene");
  ReadFields::strictInteger(guard, element, kID, id_);
  Title = element.text(kTitle);
  Unused = element.boolean(kUnused);
  ReadFields::strictInteger(guard, element, kBelongsToChID, BelongsToChID);
  Outcome = element.text(kOutcome);
  Goal = element.text(kGoal);
  Conflict = element.text(kConflict);
  Minute = element.integer16(kMinute);
  Hour = element.integer16(kHour);
  Day = element.integer16(kDay);
  LastsMinutes = element.integer16(kLastsMinutes);
  LastsHours = element.integer16(kLastsHours);
  LastsDays = element.integer16(kLastsDays);
  rtfFilename_ = SceneFolder::bareName(ReadFields::rawValue(element, kRTFFile, "clsScene"));
  DescText = element.text(kDesc);
  Tags = element.text(kTags);
  Notes = element.text(kNotes);
  for (int i = 1; i <= kStoredFields; ++i) {
    const qint16 value = element.integer16(kField[i - 1]);
    setField(i, value == 0 ? qint16{1} : value);
  }
  ReactionScene = element.boolean(kReactionScene);
  SubPlot = element.boolean(kSubPlot);
  Status = element.integer16(kStatus);
  wordcount_ = element.integer32(kWordCount);
  wordsStale_ = wordcount_ <= 0;
  lettercount_ = element.integer32(kLetterCount);
}

void clsScene::readLists(const TagView& element) {
  using namespace modConstXML;
  const Guard guard("CreateFromXML", "clsScene");
  ReadFields::ids(guard, element, kSceneCharacters, kCharID, characters_);
  ReadFields::ids(guard, element, kSceneLocations, kLocID, locations_);
  ReadFields::ids(guard, element, kSceneItems, kItemID, items_);
}

void clsScene::readRTF(const TagView& element) {
  using namespace modConstXML;
  const QByteArray block = element.bytes(kSceneRTF);
  const bool isMarked = Tags::find(block, kCData.open) >= 0;
  // An empty text is marked too: a block without anything, or none at all, says nothing of the text.
  if (!isMarked && block.trimmed().isEmpty()) {
    textUnread_ = true;
    return;
  }
  const QByteArray stored = isMarked ? Tags::ExtractBetweenTags(block, kCData) : block;
  const bool countKnown = !wordsStale_;
  try {
    setTextRTF(Html().decodedMime64(stored));
    wordsStale_ = !countKnown;
  } catch (const RuntimeError& error) {
    Logging().AddDebug(
        error.description() + u" ("_s + QString::number(error.number()) + u") in the text of scene '"_s + Title + u'\'',
        u"CreateFromXML"_s, u"clsScene"_s);
    textUnread_ = true;
    undecodedRTF_ = stored;
  }
}
