#pragma once

#include <QLibrary>

#include <curl/curl.h>

/// The routines of libcurl. It is loaded with the first transfer: what it needs itself would cost every start more than
/// all the rest.
class CurlLibrary {
 public:
  /// Throws RuntimeError 53, and logs, when the library isn't there or lacks a routine.
  static const CurlLibrary& get();

  decltype(&::curl_version_info) versionInfo = nullptr;
  decltype(&::curl_easy_init) makeRequest = nullptr;
  decltype(&::curl_easy_cleanup) freeRequest = nullptr;
  decltype(&::curl_easy_setopt) setOption = nullptr;
  decltype(&::curl_easy_getinfo) getInfo = nullptr;
  decltype(&::curl_easy_strerror) describe = nullptr;
  decltype(&::curl_multi_init) makeQueue = nullptr;
  decltype(&::curl_multi_cleanup) freeQueue = nullptr;
  decltype(&::curl_multi_add_handle) add = nullptr;
  decltype(&::curl_multi_remove_handle) remove = nullptr;
  decltype(&::curl_multi_perform) perform = nullptr;
  decltype(&::curl_multi_poll) poll = nullptr;
  decltype(&::curl_multi_info_read) readInfo = nullptr;

 private:
  CurlLibrary();
  template <class Routine>
  void resolve(Routine& routine, const char* name) {
    routine = reinterpret_cast<Routine>(library_.resolve(name));
    complete_ = complete_ && routine != nullptr;
  }

  QLibrary library_;
  bool complete_ = true;
};
