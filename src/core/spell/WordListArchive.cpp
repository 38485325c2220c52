#include "core/spell/WordListArchive.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/spell/WordLists.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString WordListArchive::address() {
  return u"https://downloads.sourceforge.net/wordlist/12dicts-5.0.zip"_s;
}

QString WordListArchive::page() {
  return u"http://wordlist.aspell.net/12dicts/"_s;
}

QString WordListArchive::fileName() {
  return address().section(u'/', -1);
}

QString WordListArchive::path() {
  return Paths::programFolder() + fileName();
}

bool WordListArchive::install(const QString& member, QByteArrayView content) {
  const QString name = Files().FileOnly(member);
  const auto& lists = WordLists::names();
  const auto known = std::find_if(lists.begin() + 1, lists.end(),
                                  [&](const QString& list) { return list.compare(name, Qt::CaseInsensitive) == 0; });
  if (known == lists.end()) {
    return false;
  }
  Files().MkMissingDir(WordLists::folder());
  Files().ReplaceFile(WordLists::folder() + *known, content);
  return true;
}
