#pragma once

#include <QStringView>

#include <algorithm>

/// What a UTF-16 unit means to a rich text. Reading from any source goes through this one rule, so that a
/// text holds the same plain text whichever way it came in.
enum class UnitKind : unsigned char { Ordinary, Dropped, LineBreak, ParagraphEnd };

constexpr UnitKind kindOfUnit(char16_t unit) {
  switch (unit) {
    case u'\0':
    case 0xFFFC:  // stands for an object, and none comes along
    case 0xFDD0:  // frame marks of text controls, no characters
    case 0xFDD1:
      return UnitKind::Dropped;
    case u'\v':
    case 0x2028:
      return UnitKind::LineBreak;
    case u'\r':
    case u'\n':
    case 0x2029:
      return UnitKind::ParagraphEnd;
    default:
      return UnitKind::Ordinary;
  }
}

/// Parts a text: onText(QStringView) for each stretch of ordinary units, onBreak(UnitKind) for each line break
/// and paragraph end; CR LF is one end.
template <class OnText, class OnBreak>
void partText(QStringView text, OnText&& onText, OnBreak&& onBreak) {
  const char16_t* const data = text.utf16();
  const qsizetype size = text.size();
  for (qsizetype at = 0; at < size;) {
    const auto* stop =
        std::find_if(data + at, data + size, [](char16_t unit) { return kindOfUnit(unit) != UnitKind::Ordinary; });
    const qsizetype end = stop - data;
    if (end > at) {
      onText(text.sliced(at, end - at));
    }
    if (end == size) {
      return;
    }
    const UnitKind kind = kindOfUnit(*stop);
    if (kind != UnitKind::Dropped) {
      onBreak(kind);
    }
    at = end + (*stop == u'\r' && end + 1 < size && data[end + 1] == u'\n' ? 2 : 1);
  }
}
