#include "core/infra/ProgramFacts.h"

#include "core/infra/CurlLibrary.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipLibrary.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedLang.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

template <class Ask>
QString versionOf(Ask&& ask) {
  QString version = translated(u"not found"_s);
  Guard("libraries", "ProgramFacts")([&] { version = QString::fromLatin1(ask()); });
  return version;
}

QStringList placesInEnglish() {
  return {toldText(shownText(u"Settings and log: %1"_s), {Paths::programFolder()}),
          toldText(shownText(u"Rescued texts: %1"_s), {Paths::rescueFolder()}),
          toldText(shownText(u"Dictionaries: %1"_s), {Paths::installed(u"Dict"_s)}),
          toldText(shownText(u"Languages: %1"_s), {Paths::installed(u"Languages"_s)}),
          toldText(shownText(u"Program: %1"_s), {Paths::executableFolder()})};
}

}  // namespace

namespace ProgramFacts {

QString version() {
  return toldText(shownText(u"Version %1"_s), {Subs().AppVersion()});
}

QString licence() {
  return shownText(u"MIT License"_s);
}

QList<Library> libraries() {
  return {{u"Qt"_s, QString::fromLatin1(qVersion())},
          {u"libzip"_s, versionOf([] { return ZipLibrary::get().version(); })},
          {u"libcurl"_s, versionOf([] { return CurlLibrary::get().versionInfo(CURLVERSION_NOW)->version; })}};
}

QStringList places() {
  QStringList lines = placesInEnglish();
  std::transform(lines.begin(), lines.end(), lines.begin(), translated);
  return lines;
}

QString report() {
  QStringList lines = {u"Quillane 4"_s, version(), licence(), u"System: "_s + Subs().GetWinPlatform()};
  for (const Library& library : libraries()) {
    lines += library.name + u' ' + library.version;
  }
  return (lines + placesInEnglish()).join(u'\n') + u'\n';
}

}  // namespace ProgramFacts
