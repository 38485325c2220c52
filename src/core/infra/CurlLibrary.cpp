#include "core/infra/CurlLibrary.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

using namespace Qt::StringLiterals;

CurlLibrary::CurlLibrary() {
  constexpr int kRelease = 4;
  for (const QString& name : {u"curl"_s, u"curl-gnutls"_s}) {
    library_.setFileNameAndVersion(name, kRelease);
    if (library_.load()) {
      break;
    }
  }
  resolve(versionInfo, "curl_version_info");
  resolve(makeRequest, "curl_easy_init");
  resolve(freeRequest, "curl_easy_cleanup");
  resolve(setOption, "curl_easy_setopt");
  resolve(getInfo, "curl_easy_getinfo");
  resolve(describe, "curl_easy_strerror");
  resolve(makeQueue, "curl_multi_init");
  resolve(freeQueue, "curl_multi_cleanup");
  resolve(add, "curl_multi_add_handle");
  resolve(remove, "curl_multi_remove_handle");
  resolve(perform, "curl_multi_perform");
  resolve(poll, "curl_multi_poll");
  resolve(readInfo, "curl_multi_info_read");
  if (!complete_) {
    Logging().LogEvent(u"Nothing can be fetched from the web: "_s + library_.errorString());
  }
}

const CurlLibrary& CurlLibrary::get() {
  static const CurlLibrary library;
  if (!library.complete_) {
    throw RuntimeError(RuntimeError::FileNotFound,
                       toldText(RuntimeError::descriptionOf(RuntimeError::FileNotFound) + u": %1"_s,
                                {toldText(shownText(u"the library for transfers"_s))}));
  }
  return library;
}
