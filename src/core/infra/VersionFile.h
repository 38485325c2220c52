#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// What a release is known by: "4.0.90", or "4.0.90a" for one that mends it.
struct ProgramVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
  /// One letter, or empty.
  QString suffix;

  /// At least three numbers parted by "."; the third may have one letter behind it. Nothing for any other text.
  static std::optional<ProgramVersion> read(QStringView text);
  bool isNewerThan(const ProgramVersion& other) const;
  /// Its numbers one after the other: "4090".
  QString joined() const;
};

/// The two lines by which the maker's web server tells of the newest version.
struct VersionFile {
  /// As it stands there, so much of it as a window has room for.
  QString version;
  /// Nothing when the line can't be read.
  std::optional<ProgramVersion> numbers;
  /// A file name or an address, its "@@@" replaced by the version's numbers; empty also when it is longer than any.
  QString download;

  static VersionFile read(const QString& text);
};

namespace UpdateAddress {

/// Where the check looks; empty in a build that is updated in another way. A setting says it in place of the built-in
/// one.
QString server();
QString versionFile();
QString detailsFile();

/// Whether a reply is a page for a browser where a plain text was asked for.
bool isPage(QStringView reply);
/// The whole address of what a version file names, whatever it is.
QString whole(const QString& versionFile, const QString& download);
/// The same of an installer. Empty for what must not be run: anything that doesn't come by HTTPS
/// from the host, and the port, of the version file.
QString installer(const QString& versionFile, const QString& download);

}  // namespace UpdateAddress
