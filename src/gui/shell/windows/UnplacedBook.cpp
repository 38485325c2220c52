#include "gui/shell/windows/UnplacedBook.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

QString howToKeepChanges() {
  if (g_Project->HasPlace()) {
    return {};
  }
  return translated(g_Project->ReadOnly()
                        ? shownText(u"The book is read-only: save it under a new name to keep this."_s)
                        : shownText(u"The book has no file yet: save it to keep this."_s));
}
