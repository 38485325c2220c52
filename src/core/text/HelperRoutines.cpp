#include "core/text/HelperRoutines.h"

#include "core/infra/HelperLibrary.h"

namespace {

template <class Routine>
void resolve(Routine& routine, const char* library, const char* name) {
  routine = reinterpret_cast<Routine>(helperRoutine(library, name));
}

}  // namespace

QnHtmlRoutines QnHtmlRoutines::load() {
  QnHtmlRoutines found{};
  resolve(found.cReplace, kQnHtml, "cReplace");
  resolve(found.cRemoveChar, kQnHtml, "cRemoveChar");
  resolve(found.cStripHTML, kQnHtml, "cStripHTML");
  resolve(found.cHtmlToChar, kQnHtml, "cHtmlToChar");
  resolve(found.cConvertKnownFormatting, kQnHtml, "cConvertKnownFormatting");
  resolve(found.cRemoveExtraSpaces, kQnHtml, "cRemoveExtraSpaces");
  resolve(found.cWordCount, kQnHtml, "cWordCount");
  return found;
}

QnHtml2Routines QnHtml2Routines::load() {
  QnHtml2Routines found{};
  resolve(found.cEncode64String, kQnHtml2, "cEncode64String");
  resolve(found.cEncode64, kQnHtml2, "cEncode64");
  resolve(found.cDecode64String, kQnHtml2, "cDecode64String");
  resolve(found.cDecode64, kQnHtml2, "cDecode64");
  resolve(found.cByteArrayToString, kQnHtml2, "cByteArrayToString");
  return found;
}
