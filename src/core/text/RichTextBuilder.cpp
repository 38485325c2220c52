#include "core/text/RichTextData.h"
#include "core/text/TextUnits.h"

using namespace Qt::StringLiterals;

RichText::Builder::Builder(qsizetype sizeHint) : data_(std::make_unique<RichTextData>()) {
  data_->text.reserve(sizeHint);
}

RichText::Builder::~Builder() = default;

int RichText::Builder::charFormat(const CharFormat& format) {
  return data_->charFormats.intern(format);
}

int RichText::Builder::paragraphFormat(const ParagraphFormat& format) {
  return data_->paragraphFormats.intern(format);
}

void RichText::Builder::append(QStringView text, int charFormat, int paragraphFormat) {
  partText(
      text,
      [&](QStringView units) {
        data_->text.append(units);
        data_->runs.pushMerged(data_->text.size(), charFormat);
      },
      [&](UnitKind kind) {
        if (kind == UnitKind::LineBreak) {
          lineBreak(charFormat);
        } else {
          endParagraph(charFormat, paragraphFormat);
        }
      });
}

void RichText::Builder::appendAscii(const char* text, qsizetype length, int charFormat) {
  data_->text.append(QLatin1StringView(text, length));
  data_->runs.pushMerged(data_->text.size(), charFormat);
}

void RichText::Builder::appendUnit(char16_t unit, int charFormat) {
  data_->text.append(QChar(unit));
  data_->runs.pushMerged(data_->text.size(), charFormat);
}

void RichText::Builder::lineBreak(int charFormat) {
  data_->text.append("\r\n"_L1);
  data_->runs.pushMerged(data_->text.size(), charFormat);
}

void RichText::Builder::endParagraph(int charFormat, int paragraphFormat) {
  lineBreak(charFormat);
  data_->paragraphs.push(data_->text.size(), paragraphFormat);
}

void RichText::Builder::appendObject(int charFormat) {
  appendUnit(QChar::ObjectReplacementCharacter, charFormat);
}

void RichText::Builder::dropObject() {
  data_->text.chop(1);
  data_->runs.dropEnd(1);
}

void RichText::Builder::setDefaultTab(int twips) {
  data_->setDefaultTab(twips);
}

RichText RichText::Builder::take(int charFormat, int paragraphFormat) {
  data_->finish(charFormat, paragraphFormat);
  const qsizetype size = data_->text.size();
  if (data_->text.capacity() > size + size / 4 + 64) {
    data_->text.squeeze();
  }
  RichTextData* const built = data_.release();
  data_ = std::make_unique<RichTextData>();
  return RichText(built);
}

RichText RichText::Builder::takeClosed(int charFormat, int paragraphFormat) {
  const bool isEmpty = data_->paragraphs.end() == data_->text.size();
  if (!isEmpty || data_->paragraphs.count() == 0) {
    return take(charFormat, paragraphFormat);
  }
  const int endFormat = data_->runs.last().format;
  const int lastFormat = data_->paragraphs.last().format;
  data_->text.chop(2);
  data_->paragraphs.dropLast();
  data_->runs.dropEnd(2);
  return take(endFormat, lastFormat);
}
