#include "core/infra/CodePage.h"
#include "core/infra/cSharedLang.h"
#include "core/text/Rtf.h"
#include "core/text/RtfReader.h"
#include "core/text/TextUnits.h"

#include <algorithm>
#include <utility>

namespace {

/// Writes UTF-16 straight into a text of the likely size.
class PlainSink final : public RtfSink {
 public:
  explicit PlainSink(qsizetype sizeHint) : RtfSink(false) { grow(std::max<qsizetype>(sizeHint, 64)); }

  void ascii(const char* text, qsizetype length) override {
    char16_t* out = room(length);
    for (qsizetype i = 0; i < length; ++i) {
      out[i] = static_cast<uchar>(text[i]);
    }
    at_ += length;
  }
  void unit(char16_t unit) override {
    *room(1) = unit;
    ++at_;
  }
  void lineBreak() override {
    char16_t* out = room(2);
    out[0] = u'\r';
    out[1] = u'\n';
    at_ += 2;
  }
  void paragraphEnd() override { lineBreak(); }
  void finish(bool closed) override { at_ -= closed ? 2 : 0; }

  QString take() {
    const qsizetype size = at_ - begin_;
    const bool isTight = size > text_.size() - text_.size() / 4;
    if (isTight) {
      text_.truncate(size);
      return std::move(text_);
    }
    return QString(text_.constData(), size);
  }

 private:
  char16_t* room(qsizetype units) {
    if (end_ - at_ < units) {
      grow(units);
    }
    return at_;
  }
  void grow(qsizetype units) {
    const qsizetype size = at_ - begin_;
    QString larger(std::max(size + units, size + size / 2), Qt::Uninitialized);
    auto* const data = reinterpret_cast<char16_t*>(larger.data());
    std::copy(begin_, at_, data);
    text_ = std::move(larger);
    begin_ = data;
    at_ = data + size;
    end_ = data + text_.size();
  }

  QString text_;
  char16_t* begin_ = nullptr;
  char16_t* at_ = nullptr;
  char16_t* end_ = nullptr;
};

QString withUniformLineEnds(const QString& text) {
  QString uniform;
  uniform.reserve(text.size() + text.size() / 16);
  partText(
      text, [&uniform](QStringView units) { uniform.append(units); },
      [&uniform](UnitKind) { uniform.append(u"\r\n"); });
  return uniform;
}

}  // namespace

QByteArrayView rtfStart(QByteArrayView bytes) {
  const auto skip = [&bytes](QByteArrayView what) {
    const bool isThere = bytes.startsWith(what);
    bytes = isThere ? bytes.sliced(what.size()) : bytes;
    return isThere;
  };
  const auto skipBlanks = [&skip] {
    while (skip(" ") || skip("\t") || skip("\r") || skip("\n")) {
    }
  };
  skipBlanks();
  skip("\xEF\xBB\xBF");
  skipBlanks();
  if (skip("/")) {
    skipBlanks();
  }
  return bytes.startsWith("{\\rtf") ? bytes : QByteArrayView();
}

bool isRtf(QByteArrayView bytes) {
  return !rtfStart(bytes).isEmpty();
}

QStringList namesOf(RtfLosses losses) {
  static constexpr std::pair<RtfLoss, const char16_t*> kNames[] = {
      {RtfLoss::Damaged, shownText(u"words behind a damaged place")},
      {RtfLoss::TableLayout, shownText(u"table layout")},
      {RtfLoss::HeadersFooters, shownText(u"headers and footers")},
      {RtfLoss::Deletions, shownText(u"tracked deletions")},
      {RtfLoss::TextBoxes, shownText(u"text boxes")},
      {RtfLoss::Styles, shownText(u"styles")},
      {RtfLoss::NestedFields, shownText(u"fields inside fields")},
      {RtfLoss::FieldData, shownText(u"data of fields")},
      {RtfLoss::ParagraphBorders, shownText(u"borders of paragraphs")},
      {RtfLoss::Sections, shownText(u"sections")}};
  QStringList names;
  for (const auto& [loss, name] : kNames) {
    if (losses.testFlag(loss)) {
      names.append(translated(QString::fromUtf16(name)));
    }
  }
  return names;
}

QString rtfToPlainText(QByteArrayView bytes) {
  if (!isRtf(bytes)) {
    return withUniformLineEnds(CodePage::fromBytes(bytes));
  }
  PlainSink sink(bytes.size());
  RtfReader(rtfStart(bytes), sink).read();
  return sink.take();
}
