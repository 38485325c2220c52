#include "core/spell/WordLists.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"

using namespace Qt::StringLiterals;

namespace {

QString folderName() {
  return u"Dict"_s;
}

}  // namespace

const std::array<QString, WordLists::kCount>& WordLists::names() {
  static const std::array<QString, kCount> names = {u"Custom.txt"_s,   u"2of12inf.txt"_s, u"5desk.txt"_s,
                                                    u"2of4brif.txt"_s, u"2of12.txt"_s,    u"6of12.txt"_s,
                                                    u"3esl.txt"_s};
  return names;
}

QString WordLists::folder() {
  return Paths::programFolder() + folderName() + Paths::separator();
}

QString WordLists::pathOf(size_t list) {
  const QString& name = names().at(list);
  return list == kCustom ? folder() + name : Paths::installed(folderName() + Paths::separator() + name);
}

bool WordLists::isFolderThere() {
  return Files().FolderExists(Paths::installed(folderName()));
}
