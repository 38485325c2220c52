#include "core/infra/cSHAREDUnzip2.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipNames.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "cSHAREDUnzip2";

QByteArray withLineEnds(const QByteArray& text) {
  if (text.contains('\0')) {
    return text;
  }
  QByteArray lines = text;
  return lines.replace("\r\n", "\n").replace('\r', '\n').replace("\n", "\r\n");
}

[[noreturn]] void refuse(const QString& name, const QString& why) {
  throw RuntimeError(RuntimeError::PathAccess, toldText(u"%1: %2"_s, {name, toldText(why)}));
}

void writeOut(const QByteArray& content) {
  QFile output;
  if (!output.open(stdout, QIODevice::WriteOnly) || output.write(content) != content.size()) {
    refuse(u"stdout"_s, output.errorString());
  }
}

/// Whether the way from the folder down to the file leads through a link, or the file is one.
bool hasLinkBelow(const QString& folder, const QString& file) {
  for (QString path = file; path.size() > folder.size(); path = QFileInfo(path).path()) {
    if (QFileInfo(path).isSymLink()) {
      return true;
    }
  }
  return false;
}

}  // namespace

bool cSHAREDUnzip2::Directory() {
  table_.clear();
  listed_.clear();
  return Guard("Directory", kModule)([&] { list(ZipContents(Paths::native(Zipfile))); });
}

void cSHAREDUnzip2::list(const ZipContents& archive) {
  table_.clear();
  for (qsizetype i = 0; i < archive.members().size(); ++i) {
    if (const ZipMember& member = archive.members().at(i); !member.isFolder()) {
      table_.append({member, i, false});
    }
  }
  listed_ = Zipfile;
}

bool cSHAREDUnzip2::Unzip() {
  message_.clear();
  bool isWhole = true;
  const Guard guard("Unzip", kModule);
  const QString cause = guard.causeOf([&] {
    const ZipContents archive(Paths::native(Zipfile));
    if (listed_ != Zipfile) {
      list(archive);
    }
    const bool all = std::none_of(table_.begin(), table_.end(), [](const Entry& entry) { return entry.selected; });
    for (const Entry& entry : table_) {
      if (!all && !entry.selected) {
        continue;
      }
      if (const QString why = guard.causeOf([&] { extract(archive, entry); }); !why.isEmpty()) {
        isWhole = false;
        print(why, 1);
      }
    }
  });
  if (!cause.isEmpty()) {
    print(cause, 1);
  }
  return isWhole && cause.isEmpty();
}

QString cSHAREDUnzip2::GetVersion() const {
  QString version;
  Guard("GetVersion", kModule)([&] { version = ZipContents::version(); });
  return version;
}

// The archive may have become another one since it was listed.
void cSHAREDUnzip2::extract(const ZipContents& archive, const Entry& entry) {
  const ZipMember& member = entry.about;
  if (entry.position >= archive.members().size() || archive.members().at(entry.position).name != member.name) {
    refuse(member.name, shownText(u"it is no longer in the archive"_s));
  }
  if (!ZipNames::isSafe(member.name) || member.isSpecial) {
    refuse(member.name,
           member.isSpecial ? shownText(u"it is no file"_s) : shownText(u"its name leads out of the folder"_s));
  }
  const QString target = TestZip || ExtractToStdOut ? QString() : targetOf(member);
  if (!target.isEmpty() && !mayWrite(target, member)) {
    print(u"skipping: "_s + member.name, 0);
    return;
  }
  QByteArray content = archive.read(entry.position);
  if (ConvertCRToCRLF) {
    content = withLineEnds(content);
  }
  if (TestZip) {
    print(u"testing: "_s + member.name, 0);
    return;
  }
  if (ExtractToStdOut) {
    writeOut(content);
  } else {
    write(target, content, member);
  }
  print(u"extracting: "_s + member.name, 0);
}

QString cSHAREDUnzip2::folder() const {
  return QFileInfo(QDir::cleanPath(QDir::fromNativeSeparators(Paths::native(UnzipFolder)))).absoluteFilePath();
}

QString cSHAREDUnzip2::targetOf(const ZipMember& member) const {
  QString name = UseFolderNames ? member.name : member.name.section(u'/', -1);
  if (SpaceToUnderScore) {
    name.replace(u' ', u'_');
  }
  return QDir::cleanPath(folder() + u'/' + name);
}

bool cSHAREDUnzip2::mayWrite(const QString& target, const ZipMember& member) const {
  const QFileInfo there(target);
  if (!there.exists()) {
    return true;
  }
  if (ExtractOnlyNewer) {
    return member.date > there.lastModified();
  }
  return OverwriteExisting || (PromptToOverwrite && MayOverwrite && MayOverwrite(QDir::toNativeSeparators(target)));
}

void cSHAREDUnzip2::write(const QString& target, const QByteArray& content, const ZipMember& member) const {
  if (hasLinkBelow(folder(), target)) {
    refuse(member.name, shownText(u"a link leads out of the folder"_s));
  }
  Files().MkMissingDir(QDir::toNativeSeparators(QFileInfo(target).path()));
  Files().ReplaceFile(QDir::toNativeSeparators(target), content);
  if (member.date.isValid()) {
    Files().SetFileDateTime(QDir::toNativeSeparators(target), member.date);
  }
}

const cSHAREDUnzip2::Entry& cSHAREDUnzip2::at(qint32 index) const {
  if (index < 1 || index > FileCount()) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return table_.at(index - 1);
}

QString cSHAREDUnzip2::Filename(qint32 index) const {
  return at(index).about.name.section(u'/', -1);
}

QString cSHAREDUnzip2::FileDirectory(qint32 index) const {
  return at(index).about.name.section(u'/', 0, -2);
}

qint32 cSHAREDUnzip2::FileCompressionRatio(qint32 index) const {
  constexpr double kPercent = 100.0;
  const ZipMember& member = at(index).about;
  const double part = member.size > 0 ? static_cast<double>(member.packedSize) / static_cast<double>(member.size) : 1.0;
  return qRound(kPercent * (1.0 - part));
}

void cSHAREDUnzip2::setFileSelected(qint32 index, bool selected) {
  at(index);
  table_[index - 1].selected = selected;
}

qint32 cSHAREDUnzip2::IndexOf(const QString& name) const {
  const auto found = std::find_if(table_.begin(), table_.end(), [&](const Entry& entry) {
    return entry.about.name.compare(name, CaseSensitiveFileNames ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0;
  });
  return found == table_.end() ? 0 : static_cast<qint32>(found - table_.begin()) + 1;
}

void cSHAREDUnzip2::print(const QString& text, qint32 upToLevel) {
  if (MessageLevel <= upToLevel) {
    message_ += text + u'\n';
  }
  Subs().RegularDoEvents();
}
