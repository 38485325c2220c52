#include "core/infra/ZipLibrary.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

ZipLibrary::ZipLibrary() {
  for (const int release : {5, 4}) {
    library_.setFileNameAndVersion(u"zip"_s, release);
    if (library_.load()) {
      break;
    }
  }
  resolveReading();
  resolveWriting();
  if (!complete_) {
    Logging().LogEvent(u"Archives can't be read or written: "_s + library_.errorString());
  }
}

void ZipLibrary::resolveReading() {
  resolve(open, "zip_open");
  resolve(discard, "zip_discard");
  resolve(error, "zip_get_error");
  resolve(errorCode, "zip_error_code_zip");
  resolve(beginError, "zip_error_init");
  resolve(beginErrorWithCode, "zip_error_init_with_code");
  resolve(errorText, "zip_error_strerror");
  resolve(endError, "zip_error_fini");
  resolve(version, "zip_libzip_version");
  resolve(count, "zip_get_num_entries");
  resolve(stat, "zip_stat_index");
  resolve(locate, "zip_name_locate");
  resolve(attributes, "zip_file_get_external_attributes");
  resolve(extraField, "zip_file_extra_field_get_by_id");
  resolve(openEntry, "zip_fopen_index");
  resolve(read, "zip_fread");
  resolve(entryError, "zip_file_get_error");
  resolve(closeEntry, "zip_fclose");
}

void ZipLibrary::resolveWriting() {
  resolve(openSource, "zip_open_from_source");
  resolve(close, "zip_close");
  resolve(add, "zip_file_add");
  resolve(setTime, "zip_file_set_mtime");
  resolve(setExtraField, "zip_file_extra_field_set");
  resolve(deleteExtraField, "zip_file_extra_field_delete_by_id");
  resolve(onProgress, "zip_register_progress_callback_with_state");
  resolve(bufferSource, "zip_source_buffer");
  resolve(makeBufferSource, "zip_source_buffer_create");
  resolve(keepSource, "zip_source_keep");
  resolve(freeSource, "zip_source_free");
  resolve(openForReading, "zip_source_open");
  resolve(statSource, "zip_source_stat");
  resolve(readSource, "zip_source_read");
  resolve(closeSource, "zip_source_close");
}

const ZipLibrary& ZipLibrary::get() {
  static const ZipLibrary library;
  if (!library.complete_) {
    throw RuntimeError(RuntimeError::FileNotFound,
                       toldText(RuntimeError::descriptionOf(RuntimeError::FileNotFound) + u": %1"_s,
                                {toldText(shownText(u"the library for archives"_s))}));
  }
  return library;
}

QString ZipLibrary::describe(int code) const {
  switch (code) {
    case ZIP_ER_NOZIP:
      return shownText(u"it is no archive"_s);
    case ZIP_ER_INCONS:
      return shownText(u"it contradicts itself"_s);
    case ZIP_ER_CRC:
      return shownText(u"its checksum is wrong"_s);
    case ZIP_ER_EOF:
      return shownText(u"it ends too soon"_s);
    default:
      break;
  }
  zip_error_t text{};
  beginErrorWithCode(&text, code);
  const QString described = QString::fromUtf8(errorText(&text));
  endError(&text);
  return described;
}
