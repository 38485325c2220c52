#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"
#include "core/persist/ElementWriter.h"
#include "core/persist/OwnTags.h"
#include "core/persist/ReadFields.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

using namespace modConstXML;
using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kFileVersion = 2;

}  // namespace

void clsProject::setFieldTitle(int index, const QString& name) {
  static_cast<void>(FieldTitle(index));  // a bad index fails there
  checkFieldTitle(name);
  fieldTitle_[static_cast<size_t>(index) - 1] = name;
}

// The name stands in the file as it is: what would not come back is refused.
void clsProject::checkFieldTitle(const QString& name) {
  if (!CodePage::canEncode(name) || OwnTags::firstIn(name) >= 0) {
    throw RuntimeError(RuntimeError::InvalidCall,
                       toldText(shownText(u"The name '%1' has characters that a project file can't hold in the name of "
                                          "a rating. Please use letters of the western European alphabets, and no tag "
                                          "of the file such as \"<Title>\"."_s),
                                {name}));
  }
}

void clsProject::DataAsXML(QByteArray& out) const {
  ElementWriter element(out, kProject);
  element.text(kTitle, Title);
  element.textUnlessEmpty(kDesc, DescText);
  element.textUnlessEmpty(kBio, AuthorBio);
  element.textUnlessEmpty(kAuthorName, AuthorName);
  element.integer(kWordTarget, WordTarget);
  element.integer(kEndMiddleChID, EndMiddleChID);
  element.integer(kEndBeginningChID, EndBeginningChID);
  element.integer(kWordCountStart, WordCountStart);
  element.integer(kXMLFileVersion, kFileVersion);
  for (size_t i = 0; i < lastFileIndex_.size(); ++i) {
    element.integer(kLastFileIndex[i], lastFileIndex_[i]);
  }
  for (size_t i = 0; i < fieldTitle_.size(); ++i) {
    element.raw(kFieldTitle[i], fieldTitle_[i]);
  }
  element.date(kWordTargetStartDate, WordTargetStartDate);
  element.date(kWordTargetEndDate, WordTargetEndDate);
  for (size_t i = 0; i < deadlineDate_.size(); ++i) {
    element.date(kDeadlineDate[i], deadlineDate_[i]);
  }
  for (size_t i = 0; i < deadlineStartDate_.size(); ++i) {
    element.date(kDeadlineStartDate[i], deadlineStartDate_[i]);
  }
}

bool clsProject::CreateFromXML(const TagView& element) {
  const Guard guard("CreateFromXML", "clsProject");
  return guard([&] {
    Title = element.text(kTitle);
    DescText = element.text(kDesc);
    AuthorBio = element.text(kBio);
    AuthorName = element.text(kAuthorName);
    WordTarget = element.integer32(kWordTarget);
    EndMiddleChID = element.integer32(kEndMiddleChID);
    EndBeginningChID = element.integer32(kEndBeginningChID);
    WordCountStart = element.integer32(kWordCountStart);
    for (size_t i = 0; i < lastFileIndex_.size(); ++i) {
      lastFileIndex_[i] = element.strictInteger(kLastFileIndex[i]);
    }
    for (size_t i = 0; i < fieldTitle_.size(); ++i) {
      fieldTitle_[i] = ReadFields::rawValue(element, kFieldTitle[i], "clsProject");
    }
    WordTargetStartDate = element.date(kWordTargetStartDate);
    WordTargetEndDate = element.date(kWordTargetEndDate);
    for (size_t i = 0; i < deadlineDate_.size(); ++i) {
      deadlineDate_[i] = element.date(kDeadlineDate[i]);
    }
    for (size_t i = 0; i < deadlineStartDate_.size(); ++i) {
      deadlineStartDate_[i] = element.date(kDeadlineStartDate[i]);
    }
    ChapterFile = element.raw(kChapterFile);
    SceneFile = element.raw(kSceneFile);
    ItemFile = element.raw(kItemFile);
    LocationFile = element.raw(kLocationFile);
    CharacterFile = element.raw(kCharFile);
  });
}
