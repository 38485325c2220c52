#include "core/model/clsChapter.h"
#include "core/persist/ElementWriter.h"
#include "core/persist/ReadFields.h"
#include "core/persist/modConstXML.h"

void clsChapter::DataAsXML(QByteArray& out) {
  using namespace modConstXML;
  ElementWriter element(out, kChapter);
  element.integer(kID, ID());
  element.text(kTitle, Title);
  element.booleanIfTrue(kUnused, Unused);
  element.textUnlessEmpty(kDesc, DescText);
  element.textUnlessEmpty(kTags, Tags);
  element.list(kChapterScenes, kScID, scenes_);
}

void clsChapter::CreateFromXML(const TagView& element) {
  using namespace modConstXML;
  Clear();
  const Guard guard("CreateFromXML", "clsChapter");
  ReadFields::strictInteger(guard, element, kID, id_);
  Title = element.text(kTitle);
  Unused = element.boolean(kUnused);
  DescText = element.text(kDesc);
  Tags = element.text(kTags);
  ReadFields::ids(guard, element, kChapterScenes, kScID, scenes_);
}
