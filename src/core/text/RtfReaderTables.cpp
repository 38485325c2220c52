// What an RTF text declares ahead of its body: code page, fonts and colours.
#include "core/text/RtfReader.h"

#include <algorithm>

namespace {

constexpr qsizetype kMaxTable = 1 << 16;

}  // namespace

void RtfReader::enterTable(Destination destination) {
  if (tooDeep_ > 0 || outer_.size() < 2) {  // no group of its own whose end would tell where the table ends
    skipGroup();
    return;
  }
  group_.destination = destination;
  declaredFont_ = -1;
}

void RtfReader::tableText(const char* text, qsizetype length) {
  if (group_.destination == Destination::Alternative) {
    skipGroup();
    return;
  }
  if (takesWords()) {
    std::for_each(text, text + length, [this](char raw) { byte(static_cast<uchar>(raw)); });
    return;
  }
  if (group_.destination != Destination::Fonts && group_.destination != Destination::Colours) {
    return;
  }
  for (const char raw : QByteArrayView(text, length)) {
    if (raw != ';') {
      putUnit(static_cast<uchar>(raw));
    } else if (group_.destination == Destination::Colours) {
      endColour();
    } else {
      declaredFont_ = -1;  // what follows up to the next \f belongs to no font
    }
  }
}

/// Taken until the text begins, though some programs have it behind the font table.
void RtfReader::setDocumentCodePage(int codePage) {
  if (codePage > 0 && line_ == Line::Empty && isOfDocument()) {
    documentCodePage_ = codePage;
    decoder_ = nullptr;
  }
}

void RtfReader::enterUnicodePart() {
  if (group_.destination == Destination::Alternative && tooDeep_ == 0 && outer_.size() >= 2) {
    group_.destination = outer_[outer_.size() - 2].destination;
  }
}

void RtfReader::selectFont(int number) {
  if (group_.destination == Destination::Lists) {
    lists_.levelFont(tables_.fonts.value(number).name);
    return;
  }
  if (group_.destination != Destination::Fonts) {
    group_.font = number;
    sink_.font(number);
    return;
  }
  declareFont(number);
}

void RtfReader::declareFont(int number) {
  declaredFont_ = tables_.fonts.size() < kMaxTable ? number : -1;
  if (declaredFont_ >= 0) {
    tables_.fonts.insert(declaredFont_, {});
    decoder_ = nullptr;
  }
}

void RtfReader::fontWord(RtfAction action, int number) {
  const auto font = tables_.fonts.find(declaredFont_);
  if (group_.destination != Destination::Fonts || font == tables_.fonts.end()) {
    return;
  }
  (action == RtfAction::FontCharset ? font->charset : font->codePage) = number;
  font->decoder = nullptr;
  decoder_ = nullptr;
}

void RtfReader::colourPart(RtfAction action, int number) {
  if (group_.destination != Destination::Colours) {
    return;
  }
  const int shift = action == RtfAction::Red ? 0 : action == RtfAction::Green ? 8 : 16;
  colour_ = (colour_ & ~(0xFFU << shift)) | static_cast<quint32>(std::clamp(number, 0, 255)) << shift;
  hasColour_ = true;
}

void RtfReader::endColour() {
  if (tables_.colours.size() < static_cast<size_t>(kMaxTable)) {
    tables_.colours.push_back(hasColour_ ? std::optional(colour_) : std::nullopt);
  }
  colour_ = 0;
  hasColour_ = false;
}
