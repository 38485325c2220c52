#pragma once

#include <memory>

class clsChapter;
class clsCharacter;
class clsProject;

/// A book whose contents come from elsewhere.
namespace ImportedBook {

/// Everything in the project is erased but what is set about it as a whole: its file, its settings. It gets a title and
/// an author to be replaced, and the character who narrates all that comes.
std::shared_ptr<clsCharacter> begin(clsProject& project);

/// At the end, numbered, without a scene.
std::shared_ptr<clsChapter> addChapter(clsProject& project);

}  // namespace ImportedBook
