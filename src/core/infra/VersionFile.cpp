#include "core/infra/VersionFile.h"

#include "core/infra/cSHAREDSettings.h"

#include <QUrl>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// Where new versions are told of, without a path. Empty: this build is brought up to date in another way, and the
/// program neither looks nor offers to.
constexpr const char* kUpdateAddress = QUILLANE_UPDATE_ADDRESS;

/// Digits alone: no signs, no blanks in between.
std::optional<int> number(QStringView text) {
  const bool digits = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  bool fits = false;
  const int value = text.toInt(&fits);
  return digits && fits ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<ProgramVersion> ProgramVersion::read(QStringView text) {
  constexpr qsizetype kFields = 3;
  const QList<QStringView> fields = text.trimmed().split(u'.');
  if (fields.size() < kFields) {
    return std::nullopt;
  }
  QStringView last = fields[2].trimmed();
  QString suffix;
  if (!last.isEmpty() && last.back().isLetter()) {
    suffix = last.last(1).toString();
    last.chop(1);
  }
  const auto major = number(fields[0].trimmed());
  const auto minor = number(fields[1].trimmed());
  const auto revision = number(last);
  if (!major || !minor || !revision) {
    return std::nullopt;
  }
  return ProgramVersion{*major, *minor, *revision, suffix};
}

bool ProgramVersion::isNewerThan(const ProgramVersion& other) const {
  const QString ours = suffix.toUpper();
  const QString theirs = other.suffix.toUpper();
  return std::tie(major, minor, revision, ours) > std::tie(other.major, other.minor, other.revision, theirs);
}

QString ProgramVersion::joined() const {
  return QString::number(major) + QString::number(minor) + QString::number(revision) + suffix;
}

VersionFile VersionFile::read(const QString& text) {
  QString plain = text;
  const QStringList lines = plain.remove(u'\r').split(u'\n');
  VersionFile file;
  constexpr qsizetype kMostShown = 40;
  constexpr qsizetype kLongestAddress = 500;
  const QString version = lines.value(0).trimmed();
  file.version = version.left(kMostShown);
  file.numbers = ProgramVersion::read(version);
  file.download = lines.value(1).trimmed();
  if (file.numbers) {
    file.download.replace(u"@@@"_s, file.numbers->joined());
  }
  if (file.download.size() > kLongestAddress) {
    file.download.clear();
  }
  return file;
}

namespace UpdateAddress {

QString server() {
  QString address = Settings().sGet(u"UpdateAddress"_s, QString::fromLatin1(kUpdateAddress)).toString().trimmed();
  while (address.endsWith(u'/')) {
    address.chop(1);
  }
  return address;
}

QString versionFile() {
  return server() + u"/versions/Quillane4_current.txt"_s;
}

QString detailsFile() {
  return server() + u"/versions/Quillane4_details.txt"_s;
}

bool isPage(QStringView reply) {
  return reply.contains(u"<HTML", Qt::CaseInsensitive) || reply.contains(u"<!DOCTYPE", Qt::CaseInsensitive);
}

QString whole(const QString& versionFile, const QString& download) {
  const QUrl address = QUrl(versionFile).resolved(QUrl(download));
  return address.isValid() ? address.toString(QUrl::FullyEncoded) : download;
}

QString installer(const QString& versionFile, const QString& download) {
  const QUrl base(versionFile);
  const QUrl address = base.resolved(QUrl(download));
  const int kHttps = 443;
  const bool isAuthentic = address.isValid() && address.scheme() == u"https" && base.scheme() == u"https" &&
                           !address.host().isEmpty() && address.host() == base.host() &&
                           address.port(kHttps) == base.port(kHttps) && address.userInfo() == base.userInfo();
  return isAuthentic ? address.toString(QUrl::FullyEncoded) : QString();
}

}  // namespace UpdateAddress
