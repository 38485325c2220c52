#include "core/infra/InstallerFile.h"

#include "core/infra/VersionFile.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSharedFileSubs.h"

using namespace Qt::StringLiterals;

namespace {

/// A server's page of apology is shorter, an installer longer.
constexpr qint64 kLongestPage = 25'000;

bool isErrorPage(const QString& path) {
  QByteArray content;
  return Files().FileSize(path) < kLongestPage && Files().LoadTextFile(path, content) &&
         content.toUpper().contains("<HTML>");
}

}  // namespace

QString downloadInstaller(cSHAREDInternet& internet, const QString& address, const QString& path) {
  if (!internet.GetFile(address, path)) {
    return u"Error - Download failed."_s;
  }
  const qint64 expected = internet.ExpectedFilesize();
  if (expected > 0 && Files().FileSize(path) != expected) {
    Files().EraseFile(path);
    return u"Error - Downloaded file is incomplete. Please retry"_s;
  }
  if (isErrorPage(path)) {
    Files().EraseFile(path);
    return u"Error - File not found on server."_s;
  }
  return {};
}
