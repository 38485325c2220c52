#include "core/persist/OwnTags.h"

#include "core/persist/modConstXML.h"

#include <QSet>
#include <QString>

namespace {

using namespace modConstXML;

constexpr Tag kSingle[] = {kRoot,
                           kProject,
                           kLocations,
                           kLocation,
                           kItems,
                           kItem,
                           kCharacters,
                           kCharacter,
                           kProjectNotes,
                           kProjectNote,
                           kScenes,
                           kScene,
                           kChapters,
                           kChapter,
                           kID,
                           kTitle,
                           kDesc,
                           kTags,
                           kUnused,
                           kSortOrder,
                           kNotes,
                           kBio,
                           kAuthorName,
                           kWordTarget,
                           kEndMiddleChID,
                           kEndBeginningChID,
                           kWordCountStart,
                           kXMLFileVersion,
                           kWordTargetStartDate,
                           kWordTargetEndDate,
                           kChapterFile,
                           kSceneFile,
                           kItemFile,
                           kLocationFile,
                           kCharFile,
                           kBelongsToChID,
                           kOutcome,
                           kGoal,
                           kConflict,
                           kMinute,
                           kHour,
                           kDay,
                           kLastsMinutes,
                           kLastsHours,
                           kLastsDays,
                           kRTFFile,
                           kReactionScene,
                           kSubPlot,
                           kStatus,
                           kWordCount,
                           kLetterCount,
                           kCharID,
                           kLocID,
                           kItemID,
                           kSceneRTF,
                           kScID,
                           kFullName,
                           kAlternateNames,
                           kMajor,
                           kGoals,
                           kImageFile};

/// Opening and closing tags in lower case.
const QSet<QString>& all() {
  static const QSet<QString> tags = [] {
    QSet<QString> found;
    const auto add = [&found](const auto& list) {
      for (const Tag& tag : list) {
        found.insert(QString::fromLatin1(tag.open.data(), tag.open.size()).toLower());
        found.insert(QString::fromLatin1(tag.close.data(), tag.close.size()).toLower());
      }
    };
    add(kSingle);
    add(kLastFileIndex);
    add(kFieldTitle);
    add(kDeadlineDate);
    add(kDeadlineStartDate);
    add(kField);
    return found;
  }();
  return tags;
}

/// No tag is longer.
constexpr qsizetype kLongest = 32;

}  // namespace

namespace OwnTags {

qsizetype firstIn(QStringView value) {
  for (qsizetype at = value.indexOf(u'<'); at >= 0; at = value.indexOf(u'<', at + 1)) {
    const QStringView begins = value.sliced(at).first(qMin(kLongest, value.size() - at));
    const qsizetype end = begins.indexOf(u'>');
    if (end >= 0 && all().contains(begins.first(end + 1).toString().toLower())) {
      return at;
    }
  }
  return -1;
}

}  // namespace OwnTags
