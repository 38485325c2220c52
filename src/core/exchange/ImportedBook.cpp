#include "core/exchange/ImportedBook.h"

#include "core/infra/cSharedLang.h"
#include "core/model/ChapterNumbers.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

namespace ImportedBook {

std::shared_ptr<clsCharacter> begin(clsProject& project) {
  // Its save is one like any other: whatever that would replace is asked about.
  project.ClearContents();
  project.MarkEdited();
  // Chapters of the same numbers come, and none of them ends a section.
  project.EndBeginningChID = 0;
  project.EndMiddleChID = 0;
  project.Title = translated(u"Imported Project"_s);
  project.AuthorName = translated(u"Author's Name"_s);
  auto narrator = std::make_shared<clsCharacter>();
  narrator->setTitle(translated(u"Unnamed"_s));
  project.AddChar(narrator);
  return narrator;
}

std::shared_ptr<clsChapter> addChapter(clsProject& project) {
  auto chapter = std::make_shared<clsChapter>();
  chapter->Title = ChapterNumbers::title(project.ChapterCount() + 1);
  project.AddChapter(chapter);
  return chapter;
}

}  // namespace ImportedBook
