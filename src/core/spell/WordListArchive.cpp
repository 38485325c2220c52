#include "core/spell/WordListArchive.h"

#include "core/infra/Paths.h"
#include "core/infra/cSHAREDUnzip2.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/spell/WordLists.h"

using namespace Qt::StringLiterals;

namespace {

QString& overridden() {
  static QString address;
  return address;
}

}  // namespace

QString WordListArchive::address() {
  return !overridden().isEmpty() ? overridden() : u"https://downloads.sourceforge.net/wordlist/12dicts-5.0.zip"_s;
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

bool WordListArchive::unpack() {
  Files().MkMissingDir(WordLists::folder());
  cSHAREDUnzip2 archive;
  archive.Zipfile = path();
  archive.UnzipFolder = WordLists::folder();
  archive.OverwriteExisting = true;
  if (!archive.Directory()) {
    return false;
  }
  bool anySelected = false;
  for (qint32 index = 1; index <= archive.FileCount(); ++index) {
    const QString& custom = WordLists::names()[WordLists::kCustom];
    const bool selected = archive.Filename(index).compare(custom, Qt::CaseInsensitive) != 0;
    archive.setFileSelected(index, selected);
    anySelected = anySelected || selected;
  }
  // With nothing selected all would be unpacked.
  return anySelected && archive.Unzip();
}

void WordListArchive::overrideAddress(const QString& address) {
  overridden() = address;
}
