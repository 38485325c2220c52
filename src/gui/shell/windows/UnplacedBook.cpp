#include "gui/shell/windows/UnplacedBook.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

QString howToKeepChanges() {
  if (g_Project->HasPlace()) {
    return {};
  }
  return g_Project->ReadOnly() ? u"The book is read-only: save it under a new name to keep this."_s
                               : u"The book has no file yet: save it to keep this."_s;
}
