#pragma once

#include "core/text/Tags.h"

#include <cstddef>

/// The tags of the project file.
namespace modConstXML {

/// A tag's name with both its forms, made from a literal.
template <std::size_t N>
class NamedTag {
 public:
  constexpr explicit NamedTag(const char (&name)[N]) {
    open_[0] = close_[0] = '<';
    close_[1] = '/';
    for (std::size_t i = 0; i + 1 < N; ++i) {
      open_[i + 1] = close_[i + 2] = name[i];
    }
    open_[N] = close_[N + 1] = '>';
  }
  constexpr operator Tag() const {
    return {QByteArrayView(open_, static_cast<qsizetype>(N + 1)),
            QByteArrayView(close_, static_cast<qsizetype>(N + 2))};
  }

 private:
  char open_[N + 1] = {};
  char close_[N + 2] = {};
};

inline constexpr QByteArrayView kHeader = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>";
inline constexpr NamedTag kRoot("QUILLANE4");

inline constexpr NamedTag kProject("PROJECT");
inline constexpr NamedTag kLocations("LOCATIONS");
inline constexpr NamedTag kLocation("LOCATION");
inline constexpr NamedTag kItems("ITEMS");
inline constexpr NamedTag kItem("ITEM");
inline constexpr NamedTag kCharacters("CHARACTERS");
inline constexpr NamedTag kCharacter("CHARACTER");
inline constexpr NamedTag kProjectNotes("PROJECTNOTES");
inline constexpr NamedTag kProjectNote("PROJECTNOTE");
inline constexpr NamedTag kScenes("SCENES");
inline constexpr NamedTag kScene("SCENE");
inline constexpr NamedTag kChapters("CHAPTERS");
inline constexpr NamedTag kChapter("CHAPTER");

// Fields that several elements share.
inline constexpr NamedTag kID("ID");
inline constexpr NamedTag kTitle("Title");
inline constexpr NamedTag kDesc("Desc");
inline constexpr NamedTag kTags("Tags");
inline constexpr NamedTag kUnused("Unused");
inline constexpr NamedTag kSortOrder("SortOrder");
inline constexpr NamedTag kNotes("Notes");

// Project.
inline constexpr NamedTag kBio("Bio");
inline constexpr NamedTag kAuthorName("AuthorName");
inline constexpr NamedTag kWordTarget("WordTarget");
inline constexpr NamedTag kEndMiddleChID("EndMiddleChID");
inline constexpr NamedTag kEndBeginningChID("EndBeginningChID");
inline constexpr NamedTag kWordCountStart("WordCountStart");
inline constexpr NamedTag kXMLFileVersion("XMLFileVersion");
inline constexpr NamedTag kWordTargetStartDate("WordTargetStartDate");
inline constexpr NamedTag kWordTargetEndDate("WordTargetEndDate");
inline constexpr NamedTag kChapterFile("ChapterFile");
inline constexpr NamedTag kSceneFile("SceneFile");
inline constexpr NamedTag kItemFile("ItemFile");
inline constexpr NamedTag kLocationFile("LocationFile");
inline constexpr NamedTag kCharFile("CharFile");

// Scene.
inline constexpr NamedTag kBelongsToChID("BelongsToChID");
inline constexpr NamedTag kOutcome("Outcome");
inline constexpr NamedTag kGoal("Goal");
inline constexpr NamedTag kConflict("Conflict");
inline constexpr NamedTag kMinute("Minute");
inline constexpr NamedTag kHour("Hour");
inline constexpr NamedTag kDay("Day");
inline constexpr NamedTag kLastsMinutes("LastsMinutes");
inline constexpr NamedTag kLastsHours("LastsHours");
inline constexpr NamedTag kLastsDays("LastsDays");
inline constexpr NamedTag kRTFFile("RTFFile");
inline constexpr NamedTag kReactionScene("ReactionScene");
inline constexpr NamedTag kSubPlot("SubPlot");
inline constexpr NamedTag kStatus("Status");
inline constexpr NamedTag kWordCount("WordCount");
inline constexpr NamedTag kLetterCount("LetterCount");
inline constexpr NamedTag kSceneCharacters("Characters");
inline constexpr NamedTag kCharID("CharID");
inline constexpr NamedTag kSceneLocations("Locations");
inline constexpr NamedTag kLocID("LocID");
inline constexpr NamedTag kSceneItems("Items");
inline constexpr NamedTag kItemID("ItemID");
inline constexpr NamedTag kSceneRTF("SCENERTF");
inline constexpr Tag kCData{"<![CDATA[", "]]>"};

// Chapter.
inline constexpr NamedTag kChapterScenes("Scenes");
inline constexpr NamedTag kScID("ScID");

// Character.
inline constexpr NamedTag kFullName("FullName");
inline constexpr NamedTag kAlternateNames("AlternateNames");
inline constexpr NamedTag kMajor("Major");
inline constexpr NamedTag kGoals("Goals");
inline constexpr NamedTag kImageFile("ImageFile");

// Numbered fields of project and scene, indexed from 0 for the number 1.
inline constexpr Tag kLastFileIndex[] = {
    {"<LastFileIndex1>", "</LastFileIndex1>"}, {"<LastFileIndex2>", "</LastFileIndex2>"},
    {"<LastFileIndex3>", "</LastFileIndex3>"}, {"<LastFileIndex4>", "</LastFileIndex4>"},
    {"<LastFileIndex5>", "</LastFileIndex5>"}, {"<LastFileIndex6>", "</LastFileIndex6>"},
    {"<LastFileIndex7>", "</LastFileIndex7>"}};
inline constexpr Tag kFieldTitle[] = {{"<FieldTitle1>", "</FieldTitle1>"},
                                      {"<FieldTitle2>", "</FieldTitle2>"},
                                      {"<FieldTitle3>", "</FieldTitle3>"},
                                      {"<FieldTitle4>", "</FieldTitle4>"}};
inline constexpr Tag kDeadlineDate[] = {{"<DeadlineDate1>", "</DeadlineDate1>"},
                                        {"<DeadlineDate2>", "</DeadlineDate2>"},
                                        {"<DeadlineDate3>", "</DeadlineDate3>"},
                                        {"<DeadlineDate4>", "</DeadlineDate4>"},
                                        {"<DeadlineDate5>", "</DeadlineDate5>"}};
inline constexpr Tag kDeadlineStartDate[] = {{"<DeadlineStartDate1>", "</DeadlineStartDate1>"},
                                             {"<DeadlineStartDate2>", "</DeadlineStartDate2>"},
                                             {"<DeadlineStartDate3>", "</DeadlineStartDate3>"},
                                             {"<DeadlineStartDate4>", "</DeadlineStartDate4>"},
                                             {"<DeadlineStartDate5>", "</DeadlineStartDate5>"}};
inline constexpr Tag kField[] = {
    {"<Field1>", "</Field1>"}, {"<Field2>", "</Field2>"}, {"<Field3>", "</Field3>"}, {"<Field4>", "</Field4>"}};

}  // namespace modConstXML
