#include "core/infra/ZipReader.h"

#include "core/infra/cSharedLogging.h"

#include <QFile>
#include <QLibrary>

#include <memory>
#include <zip.h>

using namespace Qt::StringLiterals;

namespace {

constexpr zip_uint64_t kLargestRead = zip_uint64_t{1} << 30;

/// The routines of libzip. It is loaded with the first archive: what it needs itself would cost every start 2 MB.
class ZipLibrary {
 public:
  ZipLibrary() {
    for (const int version : {5, 4}) {
      library_.setFileNameAndVersion(u"zip"_s, version);
      if (library_.load()) {
        break;
      }
    }
    complete_ = resolve(open, "zip_open") && resolve(discard, "zip_discard") && resolve(locate, "zip_name_locate") &&
                resolve(stat, "zip_stat_index") && resolve(openEntry, "zip_fopen_index") &&
                resolve(read, "zip_fread") && resolve(closeEntry, "zip_fclose");
    if (!complete_) {
      Logging().LogEvent(u"Archives can't be read: "_s + library_.errorString());
    }
  }

  bool isComplete() const { return complete_; }

  decltype(&zip_open) open = nullptr;
  decltype(&zip_discard) discard = nullptr;
  decltype(&zip_name_locate) locate = nullptr;
  decltype(&zip_stat_index) stat = nullptr;
  decltype(&zip_fopen_index) openEntry = nullptr;
  decltype(&zip_fread) read = nullptr;
  decltype(&zip_fclose) closeEntry = nullptr;

 private:
  template <class Routine>
  bool resolve(Routine& routine, const char* name) {
    routine = reinterpret_cast<Routine>(library_.resolve(name));
    return routine != nullptr;
  }

  QLibrary library_;
  bool complete_ = false;
};

}  // namespace

std::optional<QByteArray> readFromZip(const QString& archive, const QString& name) {
  static const ZipLibrary library;
  if (!library.isComplete()) {
    return {};
  }
  using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;
  using Entry = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;
  const Archive zip(library.open(QFile::encodeName(archive).constData(), ZIP_RDONLY, nullptr), library.discard);
  if (!zip) {
    return {};
  }
  const zip_int64_t index = library.locate(zip.get(), name.toUtf8().constData(), ZIP_FL_NOCASE | ZIP_FL_NODIR);
  zip_stat_t about{};
  if (index < 0 || library.stat(zip.get(), static_cast<zip_uint64_t>(index), 0, &about) != 0 ||
      (about.valid & ZIP_STAT_SIZE) == 0 || about.size > kLargestRead) {
    return {};
  }
  const Entry entry(library.openEntry(zip.get(), static_cast<zip_uint64_t>(index), 0), library.closeEntry);
  if (!entry) {
    return {};
  }
  QByteArray content(static_cast<qsizetype>(about.size), '\0');
  // An archive that is cut off or has a wrong sum gives fewer bytes, or an error.
  const zip_int64_t got = library.read(entry.get(), content.data(), about.size);
  return got == static_cast<zip_int64_t>(about.size) ? std::optional(std::move(content)) : std::nullopt;
}
