#pragma once

#include <QString>
#include <QStringList>

class LongWork;
class clsQN2Project;
class clsScene;

/// What was read of generation 2 goes into the book.
namespace ImportQN2 {

/// Into g_Project, which is a new and empty one. What it can't hold gets a sentence each.
QStringList fill(const clsQN2Project& from, LongWork& work);
/// A scene that holds the text of a generation-2 chapter: the scenes that are marked in it stand behind it afterwards,
/// and their actors among the characters, and the book is saved, which has its own place. The scene itself stays as it
/// is. Empty when that is done, else why not: the book is as it was then.
QString splitScene(clsScene& source);

}  // namespace ImportQN2
