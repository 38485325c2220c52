#include "core/infra/ProgramFacts.h"

#include "core/infra/CurlLibrary.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ZipLibrary.h"
#include "core/infra/cSHAREDSubs.h"

using namespace Qt::StringLiterals;

namespace {

template <class Ask>
QString versionOf(Ask&& ask) {
  QString version = u"not found"_s;
  Guard("libraries", "ProgramFacts")([&] { version = QString::fromLatin1(ask()); });
  return version;
}

}  // namespace

namespace ProgramFacts {

QString version() {
  return u"Version "_s + Subs().AppVersion();
}

QString licence() {
  return u"MIT License"_s;
}

QList<Library> libraries() {
  return {{u"Qt"_s, QString::fromLatin1(qVersion())},
          {u"libzip"_s, versionOf([] { return ZipLibrary::get().version(); })},
          {u"libcurl"_s, versionOf([] { return CurlLibrary::get().versionInfo(CURLVERSION_NOW)->version; })}};
}

QStringList places() {
  return {u"Settings and log: "_s + Paths::programFolder(), u"Dictionaries: "_s + Paths::installed(u"Dict"_s),
          u"Program: "_s + Paths::executableFolder()};
}

QString report() {
  QStringList lines = {u"Quillane 4"_s, version(), licence(), u"System: "_s + Subs().GetWinPlatform()};
  for (const Library& library : libraries()) {
    lines += library.name + u' ' + library.version;
  }
  return (lines + places()).join(u'\n') + u'\n';
}

}  // namespace ProgramFacts
