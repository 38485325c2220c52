#pragma once

#include <QString>
#include <QStringList>

class LongWork;
class clsQN2Project;
class clsQN2Scene;
class clsScene;

/// What was read of generation 2 goes into the book.
namespace ImportQN2 {

/// Into g_Project, which is a new and empty one. What it can't hold gets a sentence each.
QStringList fill(const clsQN2Project& from, LongWork& work);
/// Text and plan; the viewpoint stays as it is.
void take(const clsQN2Scene& from, clsScene& into);

}  // namespace ImportQN2
