#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/persist/ElementWriter.h"
#include "core/persist/ReadFields.h"
#include "core/persist/modConstXML.h"

using namespace modConstXML;

void clsCharacter::DataAsXML(QByteArray& out) {
  ElementWriter element(out, kCharacter);
  element.integer(kID, ID());
  element.text(kTitle, title_);
  element.textUnlessEmpty(kFullName, FullName);
  element.textUnlessEmpty(kAlternateNames, AlternateNames);
  element.boolean(kUnused, Unused);
  element.boolean(kMajor, major);
  element.integer(kSortOrder, SortOrder);
  element.textUnlessEmpty(kDesc, DescText);
  element.textUnlessEmpty(kTags, Tags);
  element.textUnlessEmpty(kBio, Bio);
  element.textUnlessEmpty(kGoals, Goals);
  element.textUnlessEmpty(kNotes, Notes);
  element.text(kImageFile, ImageFile);
}

void clsCharacter::CreateFromXML(const TagView& element) {
  Clear();
  ReadFields::strictInteger(Guard("CreateFromXML", "clsCharacter"), element, kID, id_);
  title_ = element.text(kTitle);
  FullName = element.text(kFullName);
  AlternateNames = element.text(kAlternateNames);
  Unused = element.boolean(kUnused);
  major = element.boolean(kMajor);
  SortOrder = element.integer16(kSortOrder);
  DescText = element.text(kDesc);
  Tags = element.text(kTags);
  Bio = element.text(kBio);
  Goals = element.text(kGoals);
  Notes = element.text(kNotes);
  ImageFile = element.text(kImageFile);
}

void StoryThing::appendXML(QByteArray& out, const Tag& elementTag, qint32 id) const {
  ElementWriter element(out, elementTag);
  element.integer(kID, id);
  element.text(kTitle, Title);
  element.boolean(kUnused, Unused);
  element.integer(kSortOrder, SortOrder);
  element.text(kDesc, DescText);
  element.textUnlessEmpty(kTags, Tags);
}

// SortOrder is written and not read: a loaded thing has 0.
void StoryThing::readXML(const TagView& element, const char* module) {
  ReadFields::strictInteger(Guard("CreateFromXML", module), element, kID, id_);
  Title = element.text(kTitle);
  Unused = element.boolean(kUnused);
  DescText = element.text(kDesc);
  Tags = element.text(kTags);
}

void clsLocation::DataAsXML(QByteArray& out) {
  appendXML(out, kLocation, ID());
}

void clsLocation::CreateFromXML(const TagView& element) {
  Clear();
  readXML(element, "clsLocation");
}

void clsItem::DataAsXML(QByteArray& out) {
  appendXML(out, kItem, ID());
}

void clsItem::CreateFromXML(const TagView& element) {
  Clear();
  readXML(element, "clsItem");
}

void clsNote::DataAsXML(QByteArray& out) {
  ElementWriter element(out, kProjectNote);
  element.integer(kID, ID());
  element.text(kTitle, Title);
  element.text(kDesc, DescText);
  element.textUnlessEmpty(kTags, Tags);
}

void clsNote::CreateFromXML(const TagView& element) {
  Clear();
  ReadFields::strictInteger(Guard("CreateFromXML", "clsNote"), element, kID, id_);
  Title = element.text(kTitle);
  DescText = element.text(kDesc);
  Tags = element.text(kTags);
}
