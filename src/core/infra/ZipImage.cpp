#include "core/infra/ZipImage.h"

#include "core/infra/Guard.h"
#include "core/infra/ZipLibrary.h"
#include "core/infra/cSHAREDSubs.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSecond = 1000000000;

/// The time of a file to the last digit, in the field that other programs know for it: a reserved word, the number and
/// the length of the attribute, and three times in tenths of microseconds since 1601.
namespace TimeField {

constexpr zip_uint16_t kId = 0x000A;
constexpr quint16 kTimes = 1;
constexpr quint16 kTimesLength = 24;
constexpr qsizetype kAttribute = 4;
constexpr qsizetype kFirstTime = 8;
constexpr qsizetype kTimeLength = 8;
constexpr qsizetype kLength = kFirstTime + kTimesLength;
constexpr qint64 kTick = 100;
constexpr qint64 kEpoch = 116444736000000000;
constexpr zip_flags_t kBothHeaders = ZIP_FL_LOCAL | ZIP_FL_CENTRAL;

std::array<uchar, kLength> of(qint64 modified) {
  std::array<uchar, kLength> field{};
  qToLittleEndian(kTimes, &field[kAttribute]);
  qToLittleEndian(kTimesLength, &field[kAttribute + 2]);
  for (qsizetype at = kFirstTime; at < kLength; at += kTimeLength) {
    qToLittleEndian(modified / kTick + kEpoch, &field[static_cast<size_t>(at)]);
  }
  return field;
}

std::optional<qint64> read(const uchar* field, zip_uint16_t length) {
  if (field == nullptr || length != kLength || qFromLittleEndian<quint16>(field + kAttribute) != kTimes) {
    return {};
  }
  const auto ticks = qFromLittleEndian<qint64>(field + kFirstTime);
  constexpr qint64 kLast = kEpoch + std::numeric_limits<qint64>::max() / kTick;
  return ticks < kEpoch || ticks > kLast ? std::nullopt : std::optional((ticks - kEpoch) * kTick);
}

/// What the field can hold of a time.
qint64 rounded(qint64 modified) {
  return modified / kTick * kTick;
}

}  // namespace TimeField

/// In memory of the C library; none for no bytes.
void* copyOf(const QByteArray& bytes) {
  const auto size = static_cast<size_t>(bytes.size());
  void* const copy = size == 0 ? nullptr : std::malloc(size);
  if (size > 0 && copy == nullptr) {
    throw std::bad_alloc();
  }
  return size == 0 ? nullptr : std::memcpy(copy, bytes.constData(), size);
}

/// The bytes of an archive opened for changes; what wasn't closed is thrown away.
class OpenImage {
 public:
  explicit OpenImage(const QByteArray& bytes) {
    zip_error_t error{};
    library.beginError(&error);
    // A copy that the library owns: of bytes that it doesn't own it frees those that it takes over into the new
    // archive.
    void* const copy = copyOf(bytes);
    source_ = library.makeBufferSource(copy, static_cast<zip_uint64_t>(bytes.size()), 1, &error);
    if (source_ == nullptr) {
      std::free(copy);
    }
    zip = source_ == nullptr ? nullptr : library.openSource(source_, ZIP_CREATE, &error);
    if (zip != nullptr) {
      library.keepSource(source_);
    }
    code = library.errorCode(&error);
    library.endError(&error);
  }
  ~OpenImage() {
    if (zip != nullptr) {
      library.discard(zip);
    }
    library.freeSource(source_);
  }
  OpenImage(const OpenImage&) = delete;
  OpenImage& operator=(const OpenImage&) = delete;

  int add(const ZipImage::File& file) {
    zip_source_t* const content =
        library.bufferSource(zip, file.content.constData(), static_cast<zip_uint64_t>(file.content.size()), 0);
    const zip_int64_t added = content == nullptr ? -1
                                                 : library.add(zip, file.name.toUtf8().constData(), content,
                                                               ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8);
    if (added < 0) {
      library.freeSource(content);
      return failure();
    }
    const auto index = static_cast<zip_uint64_t>(added);
    const auto field = TimeField::of(file.stamp.modified);
    library.deleteExtraField(zip, index, TimeField::kId, ZIP_EXTRA_FIELD_ALL, TimeField::kBothHeaders);
    const bool timed = library.setTime(zip, index, static_cast<time_t>(file.stamp.modified / kSecond), 0) == 0 &&
                       library.setExtraField(zip, index, TimeField::kId, ZIP_EXTRA_FIELD_NEW, field.data(),
                                             static_cast<zip_uint16_t>(field.size()), TimeField::kBothHeaders) == 0;
    return timed ? ZIP_ER_OK : failure();
  }

  /// Packs what was added.
  int close() {
    constexpr double kEveryHundredth = 0.01;
    const auto yield = [](zip_t*, double, void*) {
      Guard("RegularDoEvents", "cSharedZipFiles")([] { Subs().RegularDoEvents(); });
    };
    library.onProgress(zip, kEveryHundredth, yield, nullptr, nullptr);
    if (library.close(zip) != 0) {
      return failure();
    }
    zip = nullptr;
    return ZIP_ER_OK;
  }

  /// What has become of the bytes; nothing when they can't be had.
  std::optional<QByteArray> result() {
    zip_stat_t about{};
    if (library.openForReading(source_) != 0 || library.statSource(source_, &about) != 0) {
      return {};
    }
    QByteArray bytes(static_cast<qsizetype>(about.size), Qt::Uninitialized);
    const zip_int64_t got = library.readSource(source_, bytes.data(), about.size);
    library.closeSource(source_);
    return got == bytes.size() ? std::optional(std::move(bytes)) : std::nullopt;
  }

  const ZipLibrary& library = ZipLibrary::get();
  zip_t* zip = nullptr;
  int code = ZIP_ER_OK;

 private:
  int failure() const {
    const int told = library.errorCode(library.error(zip));
    return told == ZIP_ER_OK ? ZIP_ER_INTERNAL : told;
  }

  zip_source_t* source_ = nullptr;
};

}  // namespace

ZipImage::ZipImage(QByteArray archive) : bytes_(std::move(archive)) {
  code_ = list();
}

int ZipImage::list() {
  const OpenImage image(bytes_);
  if (image.zip == nullptr) {
    return image.code;
  }
  const ZipLibrary& library = image.library;
  const auto count = static_cast<zip_uint64_t>(std::max<zip_int64_t>(library.count(image.zip, 0), 0));
  for (zip_uint64_t i = 0; i < count; ++i) {
    zip_stat_t about{};
    constexpr zip_uint64_t kNeeded = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_MTIME;
    if (library.stat(image.zip, i, 0, &about) != 0 || (about.valid & kNeeded) != kNeeded) {
      continue;
    }
    zip_uint16_t length = 0;
    const zip_uint8_t* const field = library.extraField(image.zip, i, TimeField::kId, 0, &length, ZIP_FL_CENTRAL);
    const auto exact = TimeField::read(field, length);
    const qint64 modified = exact.value_or(about.mtime * kSecond);
    held_.insert(QString::fromUtf8(about.name), {{static_cast<qint64>(about.size), modified, 0}, exact.has_value()});
  }
  return ZIP_ER_OK;
}

bool ZipImage::hasUnchanged(const QString& name, const FileStamp& file) const {
  const Held held = held_.value(name);
  return held.isExact && held.stamp.size == file.size && held.stamp.modified == TimeField::rounded(file.modified);
}

bool ZipImage::hasAsYoung(const QString& name, const FileStamp& file) const {
  const Held held = held_.value(name);
  const qint64 unit = held.isExact ? TimeField::kTick : 2 * kSecond;
  return held.stamp.isKnown() && file.isKnown() && held.stamp.modified / unit >= file.modified / unit;
}

int ZipImage::add(const QList<File>& files) {
  if (code_ != ZIP_ER_OK || files.isEmpty()) {
    return code_;
  }
  OpenImage image(bytes_);
  if (image.zip == nullptr) {
    return image.code;
  }
  for (const File& file : files) {
    if (const int code = image.add(file); code != ZIP_ER_OK) {
      return code;
    }
  }
  if (const int code = image.close(); code != ZIP_ER_OK) {
    return code;
  }
  std::optional<QByteArray> result = image.result();
  if (!result) {
    return ZIP_ER_READ;
  }
  bytes_ = *std::move(result);
  changed_ = true;
  return ZIP_ER_OK;
}
