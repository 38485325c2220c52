#include "core/infra/ZipReader.h"

#include <QFile>

#include <memory>
#include <zip.h>

namespace {

constexpr zip_uint64_t kLargestRead = zip_uint64_t{1} << 30;

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using Entry = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

}  // namespace

std::optional<QByteArray> readFromZip(const QString& archive, const QString& name) {
  const Archive zip(zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY, nullptr), &zip_discard);
  if (!zip) {
    return {};
  }
  const zip_int64_t index = zip_name_locate(zip.get(), name.toUtf8().constData(), ZIP_FL_NOCASE | ZIP_FL_NODIR);
  zip_stat_t about{};
  if (index < 0 || zip_stat_index(zip.get(), static_cast<zip_uint64_t>(index), 0, &about) != 0 ||
      (about.valid & ZIP_STAT_SIZE) == 0 || about.size > kLargestRead) {
    return {};
  }
  const Entry entry(zip_fopen_index(zip.get(), static_cast<zip_uint64_t>(index), 0), &zip_fclose);
  if (!entry) {
    return {};
  }
  QByteArray content(static_cast<qsizetype>(about.size), '\0');
  // An archive that is cut off or has a wrong sum gives fewer bytes, or an error.
  const zip_int64_t got = zip_fread(entry.get(), content.data(), about.size);
  return got == static_cast<zip_int64_t>(about.size) ? std::optional(std::move(content)) : std::nullopt;
}
