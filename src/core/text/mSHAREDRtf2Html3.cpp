#include "core/text/mSHAREDRtf2Html3.h"

#include "core/text/RichHtml.h"
#include "core/text/Rtf.h"
#include "core/text/Rtf2HtmlOptions.h"
#include "core/text/RtfHtml.h"

QString Rtf2Html(const QByteArray& rtf, QStringView options) {
  const Rtf2HtmlOptions told(options);
  return told.isWhole ? RichHtml(readRtf(rtf), told).write() : RtfHtml(rtf, told).convert();
}
