#include "gui/toolkit/ListLabels.h"

#include "core/text/ListMark.h"
#include "gui/toolkit/RichTextDocument.h"
#include "gui/toolkit/Twips.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr double kGap = 4;
constexpr double kLeastHang = 14;

ParagraphFormat formatOf(const QTextBlock& block) {
  return RichTextDocument::fromQt(block.blockFormat());
}

bool isItem(const QTextBlock& block) {
  return block.isValid() && formatOf(block).list.style != ListMark::Style::None;
}

/// Signs of fonts that few machines have.
QString shown(QString label) {
  static constexpr std::pair<char16_t, char16_t> kSigns[] = {{0xF0A7, 0x25AA}, {0xF0A8, 0x25FB}, {0xF0D8, 0x27A2},
                                                             {0xF0FC, 0x2713}, {0xF076, 0x2756}, {0xF06E, 0x25A0},
                                                             {0xF06C, 0x25CF}, {0xF0B7, 0x2022}, {0xF02D, 0x2212}};
  for (QChar& unit : label) {
    for (const auto& [sign, like] : kSigns) {
      unit = unit == QChar(sign) ? QChar(like) : unit;
    }
  }
  return label;
}

QFont fontOf(const QTextBlock& block, const QTextEdit& control) {
  QTextCursor first(block);
  if (block.length() > 1) {
    first.setPosition(block.position() + 1);
  }
  const QTextCharFormat format = first.charFormat();
  QFont font = control.document()->defaultFont();
  if (format.hasProperty(QTextFormat::FontFamilies)) {
    font.setFamilies(format.fontFamilies().toStringList());
  }
  if (format.fontPointSize() > 0) {
    font.setPointSizeF(format.fontPointSize());
  }
  font.setBold(format.fontWeight() >= QFont::DemiBold);
  font.setItalic(format.fontItalic());
  return font;
}

void drawLabel(QPainter& painter, const QTextEdit& control, const QTextBlock& block, const ParagraphFormat& format,
               const QString& label) {
  const QRect line = control.cursorRect(QTextCursor(block));
  const QFont font = fontOf(block, control);
  const double width = QFontMetricsF(font).horizontalAdvance(label);
  const double hang = std::max({kLeastHang, -1.0 * Twips::toPixels(format.firstIndent), width + kGap});
  const double left = format.rightToLeft ? line.right() + hang - width : line.left() - hang;
  const QTextLine first = block.layout()->lineAt(0);
  painter.setFont(font);
  painter.setLayoutDirection(format.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
  painter.drawText(QPointF(left, line.top() + (first.isValid() ? first.ascent() : line.height())), label);
}

/// Numbers count from the first item of a list on.
QTextBlock firstOfList(QTextBlock block) {
  while (isItem(block) && isItem(block.previous())) {
    block = block.previous();
  }
  return block;
}

}  // namespace

int numberOfItem(const QTextBlock& paragraph) {
  ListNumbering numbering;
  int number = 0;
  QTextBlock block = firstOfList(paragraph);
  for (; block.isValid() && block.position() <= paragraph.position(); block = block.next()) {
    number = numbering.next(formatOf(block).list);
  }
  return number;
}

void drawListLabels(QPainter& painter, const QTextEdit& control) {
  const int bottom = control.viewport()->height();
  const QTextBlock first = control.cursorForPosition({0, 0}).block();
  QTextBlock block = firstOfList(first);
  painter.setPen(control.palette().color(QPalette::Text));
  ListNumbering numbering;
  for (; block.isValid(); block = block.next()) {
    const ParagraphFormat format = formatOf(block);
    numbering.next(format.list);
    if (block.position() < first.position()) {
      continue;
    }
    const QRect line = control.cursorRect(QTextCursor(block));
    if (line.top() > bottom) {
      return;
    }
    if (format.list.style != ListMark::Style::None && line.bottom() >= 0) {
      drawLabel(painter, control, block, format, shown(numbering.label(format.list)));
    }
  }
}
