#include "gui/editor/EditorText.h"

#include <QFont>
#include <QFontInfo>

namespace {

constexpr int kSelIndent = 200;
constexpr int kSelHangingIndent = -200;

}  // namespace

void ResetFontColour(RichText& text, std::optional<quint32> colour) {
  text.formatCharacters(0, -1, [&](CharFormat& format) { format.colour = colour; });
}

void SetMainIndent(RichText& text) {
  // The hanging indent counts from the first line to the others.
  text.formatParagraphs(0, -1, [](ParagraphFormat& format) {
    const bool hasOwn = format.leftIndent != 0 || format.firstIndent != 0 || format.rightIndent != 0 ||
                        format.list.style != ListMark::Style::None;
    if (!hasOwn) {
      format.leftIndent = kSelIndent + kSelHangingIndent;
      format.firstIndent = -kSelHangingIndent;
    }
  });
}

void nameFont(RichText& text, const QFont& font) {
  const int halfPoints = qRound(QFontInfo(font).pointSizeF() * 2);
  text.formatCharacters(0, -1, [&](CharFormat& format) {
    format.fontName = format.fontName.isEmpty() ? font.family() : format.fontName;
    format.halfPoints = format.halfPoints == 0 ? halfPoints : format.halfPoints;
  });
}
