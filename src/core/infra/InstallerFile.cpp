#include "core/infra/InstallerFile.h"

#include "core/infra/VersionFile.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

#include <QCryptographicHash>
#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

/// A server's page of apology is shorter, an installer longer.
constexpr qint64 kLongestPage = 25'000;

bool isErrorPage(const QString& path) {
  QByteArray content;
  return Files().FileSize(path) < kLongestPage && Files().LoadTextFile(path, content) &&
         UpdateAddress::isPage(QString::fromLatin1(content));
}

QString failed() {
  return shownText(u"Error - Download failed."_s);
}

QString incomplete() {
  return shownText(u"Error - Downloaded file is incomplete. Please retry"_s);
}

}  // namespace

QString downloadInstaller(cSHAREDInternet& internet, const QString& address, const QString& path) {
  // Where a server sends on to is no less safe than the address itself.
  internet.MayBeSentTo = [&address](const QString& to) { return UpdateAddress::installer(address, to); };
  const auto ended = qScopeGuard([&internet] { internet.MayBeSentTo = nullptr; });
  const bool hasCome = internet.GetFile(address, path);
  const qint64 expected = internet.ExpectedFilesize();
  if (!hasCome) {
    return internet.WasCutShort() ? incomplete() : failed();
  }
  if (Files().FileSize(path) <= 0) {
    Files().EraseFile(path);
    return failed();
  }
  // Where no length was announced a connection that was cut looks like the end of the file.
  if (Files().FileSize(path) != expected) {
    Files().EraseFile(path);
    return incomplete();
  }
  if (isErrorPage(path)) {
    Files().EraseFile(path);
    return shownText(u"Error - File not found on server."_s);
  }
  QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner | QFile::ExeUser);
  return {};
}

QString downloadOwnInstaller(cSHAREDInternet& internet, const QString& address, const QString& path) {
  // What replaces a file has its rights from the first byte on.
  constexpr QFile::Permissions kOwnersAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
  QFile place(path);
  if (!Files().EraseFile(path) || !place.open(QFile::WriteOnly | QFile::NewOnly, kOwnersAlone)) {
    return failed();
  }
  place.close();
  QString failure = downloadInstaller(internet, address, path);
  if (!failure.isEmpty()) {
    Files().EraseFile(path);
  }
  return failure;
}

bool isStillThat(const QString& path, const QByteArray& hash) {
  QFile file(path);
  QCryptographicHash now(QCryptographicHash::Sha256);
  return !hash.isEmpty() && file.open(QIODevice::ReadOnly) && now.addData(&file) && now.result() == hash;
}
