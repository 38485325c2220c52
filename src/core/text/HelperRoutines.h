#pragma once

#include "helpers/qnHtml.h"
#include "helpers/qnHtml2.h"

/// The routines of each helper library, all found at once: load() throws RuntimeError 53 when the library or one of
/// them is missing.
struct QnHtmlRoutines {
  decltype(&::cReplace) cReplace;
  decltype(&::cRemoveChar) cRemoveChar;
  decltype(&::cStripHTML) cStripHTML;
  decltype(&::cHtmlToChar) cHtmlToChar;
  decltype(&::cConvertKnownFormatting) cConvertKnownFormatting;
  decltype(&::cRemoveExtraSpaces) cRemoveExtraSpaces;
  decltype(&::cWordCount) cWordCount;

  static QnHtmlRoutines load();
};

struct QnHtml2Routines {
  decltype(&::cEncode64String) cEncode64String;
  decltype(&::cEncode64) cEncode64;
  decltype(&::cDecode64String) cDecode64String;
  decltype(&::cDecode64) cDecode64;
  decltype(&::cByteArrayToString) cByteArrayToString;

  static QnHtml2Routines load();
};

inline constexpr auto kQnHtml = "qnHtml.dll";
inline constexpr auto kQnHtml2 = "qnHtml2.dll";
