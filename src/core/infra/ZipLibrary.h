#pragma once

#include <QLibrary>
#include <QString>

#include <zip.h>

/// The routines of libzip. It is loaded with the first archive: what it needs itself would cost every start 2 MB.
class ZipLibrary {
 public:
  /// Throws RuntimeError 53, and logs, when the library isn't there or lacks a routine.
  static const ZipLibrary& get();

  /// What a code of the library says.
  QString describe(int code) const;

  decltype(&zip_open) open = nullptr;
  decltype(&zip_open_from_source) openSource = nullptr;
  decltype(&zip_close) close = nullptr;
  decltype(&zip_discard) discard = nullptr;
  decltype(&zip_get_error) error = nullptr;
  decltype(&zip_error_code_zip) errorCode = nullptr;
  decltype(&zip_error_init) beginError = nullptr;
  decltype(&zip_error_init_with_code) beginErrorWithCode = nullptr;
  decltype(&zip_error_strerror) errorText = nullptr;
  decltype(&zip_error_fini) endError = nullptr;
  decltype(&zip_libzip_version) version = nullptr;

  decltype(&zip_get_num_entries) count = nullptr;
  decltype(&zip_stat_index) stat = nullptr;
  decltype(&zip_name_locate) locate = nullptr;
  decltype(&zip_file_get_external_attributes) attributes = nullptr;
  decltype(&zip_file_extra_field_get_by_id) extraField = nullptr;

  decltype(&zip_fopen_index) openEntry = nullptr;
  decltype(&zip_fread) read = nullptr;
  decltype(&zip_file_get_error) entryError = nullptr;
  decltype(&zip_fclose) closeEntry = nullptr;

  decltype(&zip_file_add) add = nullptr;
  decltype(&zip_file_set_mtime) setTime = nullptr;
  decltype(&zip_file_extra_field_set) setExtraField = nullptr;
  decltype(&zip_file_extra_field_delete_by_id) deleteExtraField = nullptr;
  decltype(&zip_register_progress_callback_with_state) onProgress = nullptr;

  decltype(&zip_source_buffer) bufferSource = nullptr;
  decltype(&zip_source_buffer_create) makeBufferSource = nullptr;
  decltype(&zip_source_keep) keepSource = nullptr;
  decltype(&zip_source_free) freeSource = nullptr;
  decltype(&zip_source_open) openForReading = nullptr;
  decltype(&zip_source_stat) statSource = nullptr;
  decltype(&zip_source_read) readSource = nullptr;
  decltype(&zip_source_close) closeSource = nullptr;

 private:
  ZipLibrary();
  void resolveReading();
  void resolveWriting();
  template <class Routine>
  void resolve(Routine& routine, const char* name) {
    routine = reinterpret_cast<Routine>(library_.resolve(name));
    complete_ = complete_ && routine != nullptr;
  }

  QLibrary library_;
  bool complete_ = true;
};
