#include "core/infra/ZipContents.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipLibrary.h"
#include "core/infra/cSharedLang.h"

#include <QByteArrayView>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestRead = qint64{1} << 30;

bool isRegular(zip_uint32_t attributes) {
  constexpr zip_uint32_t kTypeShift = 16 + 12;
  constexpr zip_uint32_t kFolder = 4;
  constexpr zip_uint32_t kFile = 8;
  const zip_uint32_t type = attributes >> kTypeShift;
  return type == 0 || type == kFolder || type == kFile;
}

ZipMember memberOf(const zip_stat_t& about) {
  const auto has = [&](zip_uint64_t what) { return (about.valid & what) != 0; };
  ZipMember member;
  member.name = has(ZIP_STAT_NAME) ? QString::fromUtf8(about.name) : QString();
  member.size = has(ZIP_STAT_SIZE) ? static_cast<qint64>(about.size) : 0;
  member.packedSize = has(ZIP_STAT_COMP_SIZE) ? static_cast<qint64>(about.comp_size) : 0;
  member.date = has(ZIP_STAT_MTIME) ? QDateTime::fromSecsSinceEpoch(about.mtime) : QDateTime();
  member.crc = has(ZIP_STAT_CRC) ? about.crc : 0;
  member.method = has(ZIP_STAT_COMP_METHOD) ? about.comp_method : quint16{0};
  member.encrypted = has(ZIP_STAT_ENCRYPTION_METHOD) && about.encryption_method != ZIP_EM_NONE;
  return member;
}

[[noreturn]] void failReading(const QString& name, const QString& why) {
  throw RuntimeError(RuntimeError::InvalidFileFormat, toldText(u"%1: %2"_s, {name, toldText(why)}));
}

}  // namespace

struct ZipContents::Handle {
  explicit Handle(zip_t* opened) : zip(opened, library.discard) {}
  const ZipLibrary& library = ZipLibrary::get();
  std::unique_ptr<zip_t, decltype(&zip_discard)> zip;
};

ZipContents::ZipContents(const QString& archive) {
  const ZipLibrary& library = ZipLibrary::get();
  if (!QFileInfo(archive).isFile()) {
    throw RuntimeError::fromErrno(ENOENT, archive);
  }
  int code = ZIP_ER_OK;
  errno = 0;
  handle_ = std::make_unique<Handle>(library.open(QFile::encodeName(archive).constData(), ZIP_RDONLY, &code));
  if (!handle_->zip) {
    const int cause = errno;
    if ((code == ZIP_ER_OPEN || code == ZIP_ER_READ) && cause != 0) {
      throw RuntimeError::fromErrno(cause, archive);
    }
    failReading(archive, library.describe(code));
  }
  const zip_int64_t count = library.count(handle_->zip.get(), 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    zip_stat_t about{};
    library.stat(handle_->zip.get(), index, 0, &about);
    members_.append(memberOf(about));
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    members_.last().isSpecial =
        library.attributes(handle_->zip.get(), index, 0, &system, &attributes) == 0 && !isRegular(attributes);
  }
}

ZipContents::~ZipContents() = default;

QByteArray ZipContents::read(qsizetype index) const {
  constexpr qsizetype kStep = 65536;
  const ZipLibrary& library = handle_->library;
  const ZipMember& member = members_.at(index);
  if (member.size > kLargestRead) {
    throw RuntimeError(RuntimeError::Overflow,
                       toldText(shownText(u"%1 is larger than any file of ours"_s), {member.name}));
  }
  const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> entry(
      library.openEntry(handle_->zip.get(), static_cast<zip_uint64_t>(index), 0), library.closeEntry);
  if (!entry) {
    failReading(member.name, library.describe(library.errorCode(library.error(handle_->zip.get()))));
  }
  // It grows with what is there, whatever size is told; and it is read until the end is met, where the checksum is
  // compared.
  QByteArray content;
  QByteArray step(kStep, Qt::Uninitialized);
  for (;;) {
    const zip_int64_t got = library.read(entry.get(), step.data(), static_cast<zip_uint64_t>(kStep));
    if (got < 0) {
      failReading(member.name, library.describe(library.errorCode(library.entryError(entry.get()))));
    }
    if (got == 0) {
      break;
    }
    content.append(QByteArrayView(step).first(got));
    if (content.size() > member.size) {
      failReading(member.name, shownText(u"it is longer than the archive tells"_s));
    }
  }
  if (content.size() < member.size) {
    failReading(member.name, shownText(u"it is shorter than the archive tells"_s));
  }
  return content;
}

QString ZipContents::version() {
  return QString::fromLatin1(ZipLibrary::get().version());
}

std::optional<QByteArray> readFromZip(const QString& archive, const QString& name) {
  try {
    const ZipContents contents(archive);
    const QList<ZipMember>& members = contents.members();
    const auto found = std::find_if(members.begin(), members.end(), [&](const ZipMember& member) {
      return member.name.section(u'/', -1).compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == members.end() ? std::nullopt : std::optional(contents.read(found - members.begin()));
  } catch (const RuntimeError&) {
    return {};
  }
}
