#include "gui/toolkit/RichMimeData.h"

#include "core/text/Rtf.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kRich = "application/x-quillane-text"_L1;
constexpr auto kPlain = "text/plain"_L1;

}  // namespace

RichMimeData::RichMimeData(const RichText& text) : text_(text) {
  setText(text.plainText().replace("\r\n"_L1, "\n"_L1));
}

bool RichMimeData::isIn(const QMimeData& data) {
  return data.hasFormat(kRich);
}

RichText RichMimeData::textIn(const QMimeData& data) {
  const auto* const own = qobject_cast<const RichMimeData*>(&data);
  return own != nullptr ? own->text_ : readRtf(data.data(kRich));
}

QStringList RichMimeData::formats() const {
  return {kPlain, kRich};
}

QVariant RichMimeData::retrieveData(const QString& mimeType, QMetaType preferredType) const {
  return mimeType == kRich ? QVariant(writeRtf(text_)) : QMimeData::retrieveData(mimeType, preferredType);
}
