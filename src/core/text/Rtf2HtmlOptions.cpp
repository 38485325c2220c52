#include "core/text/Rtf2HtmlOptions.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// The decimal digits behind "+F="; 0 without any.
qint16 baseSizeOf(QStringView options) {
  const qsizetype at = options.indexOf("+F="_L1);
  int size = 0;
  for (qsizetype i = at + 3; at >= 0 && i < options.size() && options[i] >= u'0' && options[i] <= u'9'; ++i) {
    size = std::min<int>(size * 10 + options[i].unicode() - u'0', std::numeric_limits<qint16>::max());
  }
  return static_cast<qint16>(size);
}

}  // namespace

Rtf2HtmlOptions::Rtf2HtmlOptions(QStringView options)
    : LineEnd(options.contains("+CR"_L1) ? u"\r\n"_s : QString()),
      BaseSize(baseSizeOf(options)),
      UseFontFaces(!options.contains("-FF"_L1)),
      isWhole(options.contains("+U"_L1)) {}
