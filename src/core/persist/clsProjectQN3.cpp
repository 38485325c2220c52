#include "core/infra/Guard.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/OlderFiles.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLevels = 5;
constexpr int kRatings = 4;
constexpr int kFileIndexes = 7;

/// A date that is none is noted, and stays unset.
qint32 dateOf(const KeyedFile& file, const QString& key, OlderFiles& from) {
  qint32 day = 0;
  if (!Guard("CopySettingsToVariables", "clsProject")([&] { day = file.date(key); })) {
    from.noteUnread(key + u" \""_s + file.text(key).trimmed() + u'"');
  }
  return day;
}

}  // namespace

void clsProject::CopySettingsToVariables(const KeyedFile& file, OlderFiles& from) {
  Title = file.text(u"Title"_s, u"Project Title Here"_s);
  AuthorBio = file.decoded(u"AuthorBio"_s);
  AuthorName = file.text(u"Author"_s, u"Author Name Here"_s);
  DescText = file.decoded(u"Desc"_s);
  WordTargetStartDate = dateOf(file, u"WordTargetStartDate"_s, from);
  WordTargetEndDate = dateOf(file, u"WordTargetEndDate"_s, from);
  WordTarget = file.integer32(u"WordTarget"_s);
  WordCountStart = file.integer32(u"WordCountStart"_s);
  EndMiddleChID = file.integer32(u"EndMiddleChID"_s);
  EndBeginningChID = file.integer32(u"EndBeginningChID"_s);
  for (int level = 1; level <= kLevels; ++level) {
    setDeadlineDate(level, dateOf(file, u"DeadlineDate"_s + QString::number(level), from));
    setDeadlineStartDate(level, dateOf(file, u"DeadlineStartDate"_s + QString::number(level), from));
  }
  for (int rating = 1; rating <= kRatings; ++rating) {
    const QString usual = g_RatingNames.value(rating);
    const QString name = file.text(u"Field"_s + QString::number(rating), usual);
    if (!Guard("CopySettingsToVariables", "clsProject")([&] { setFieldTitle(rating, name); })) {
      from.noteUnread(toldText(shownText(u"the name of a rating \"%1\""_s), {name}));
      setFieldTitle(rating, usual);
    }
  }
  for (int index = 1; index <= kFileIndexes; ++index) {
    setLastFileIndex(index, file.integer32(u"LastFileIndex_"_s + QString::number(index)));
  }
  LocationFile = file.text(u"LocationFile"_s);
  ItemFile = file.text(u"ItemFile"_s);
  CharacterFile = file.text(u"CharacterFile"_s);
  SceneFile = file.text(u"SceneFile"_s);
  ChapterFile = file.text(u"ChapterFile"_s);
}

void clsProject::ImportDescBioFiles(const KeyedFile& file, OlderFiles& from) {
  from.importText(file, u"DescFile"_s, DescText);
  from.importText(file, u"BioFile"_s, AuthorBio);
}
