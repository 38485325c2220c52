#include "gui/editor/EditorText.h"

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
