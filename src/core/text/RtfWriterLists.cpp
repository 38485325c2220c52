// How the paragraphs of lists are marked: for those who know the table of lists, for those who know \pn alone, and for
// those who know neither.
#include "core/text/RtfCodePages.h"
#include "core/text/RtfWriter.h"

#include <algorithm>

namespace {

constexpr const char* kNumeralWords[] = {nullptr,     "\\pnlvlblt", "\\pndec", "\\pnucltr",
                                         "\\pnlcltr", "\\pnucrm",   "\\pnlcrm"};
constexpr QStringView kBulletFont = u"Symbol";
constexpr char16_t kSymbolBullet = 0xF0B7;

bool isUsual(const ListMark& mark) {
  return mark.fontName.isEmpty() && mark.before == ListMark::bullet().before;
}

/// As the table of lists numbers the styles.
int numeralNumber(ListMark::Style style) {
  constexpr int kNumbers[] = {255, 23, 0, 3, 4, 1, 2};
  return kNumbers[static_cast<size_t>(style)];
}

void putByte(ByteWriter& out, qsizetype byte) {
  constexpr char kDigits[] = "0123456789abcdef";
  const char bytes[] = {'\\', '\'', kDigits[byte >> 4 & 15], kDigits[byte & 15]};
  out.put(QByteArrayView(bytes, 4));
}

/// What stands in front of a level's number: signs, numbers of levels above.
QString inFront(const RtfListTable::Level& level) {
  QString text = level.mark.before;
  for (int parent = 0; parent < level.mark.level; ++parent) {
    if ((level.parents >> parent & 1) != 0) {
      text += QChar(parent);
      text += u'.';
    }
  }
  return text;
}

}  // namespace

void RtfWriter::writeLists() {
  const auto& lists = lists_.lists();
  out_.put("{\\*\\listtable");
  for (qsizetype i = 0; i < lists.size(); ++i) {
    writeList(lists[i], static_cast<int>(i) + 1);
  }
  out_.put("}\r\n{\\*\\listoverridetable");
  for (int number = 1; number <= lists.size(); ++number) {
    out_.put("{\\listoverride");
    word("\\listid", number);
    word("\\listoverridecount", 0);
    word("\\ls", number);
    out_.put("}");
  }
  out_.put("}\r\n");
}

/// A list has one level or all.
void RtfWriter::writeList(const RtfListTable::List& list, int number) {
  using Level = RtfListTable::Level;
  const bool isSimple = std::none_of(list.begin() + 1, list.end(),
                                     [](const Level& level) { return level.mark.style != ListMark::Style::None; });
  out_.put("\r\n{\\list");
  word("\\listtemplateid", number);
  word("\\listsimple", isSimple ? 1 : 0);
  for (const Level& level : list) {
    writeLevel(level);
    if (isSimple) {
      break;
    }
  }
  out_.put("{\\listname ;}");
  word("\\listid", number);
  out_.put("}");
}

/// Its text is told with its length, and then where in it the numbers stand.
void RtfWriter::writeLevel(const RtfListTable::Level& level) {
  const ListMark& mark = level.mark;
  QString text;
  if (mark.isNumbered()) {
    text = inFront(level) + QChar(mark.level) + mark.after;
  } else if (mark.style == ListMark::Style::Bullet) {
    text = isUsual(mark) ? QString(QChar(kSymbolBullet)) : mark.before;
  }
  out_.put("{\\listlevel");
  word("\\levelnfc", numeralNumber(mark.style));
  out_.put("\\leveljc0\\levelfollow0");
  word("\\levelstartat", level.start);
  out_.put("{\\leveltext");
  putByte(out_, text.size());
  needsBlank_ = false;
  QByteArray places;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].unicode() < ListMark::kLevels) {
      putByte(out_, text[i].unicode());
      places.append(static_cast<char>(i + 1));
    } else {
      units(QStringView(text).sliced(i, 1));
    }
  }
  out_.put(";}{\\levelnumbers");
  for (const char place : places) {
    putByte(out_, place);
  }
  out_.put(";}");
  if (!mark.isNumbered() && !bulletFont(mark).isEmpty()) {
    word("\\f", fontNumber(bulletFont(mark)));
  }
  out_.put("}");
}

/// In front of every paragraph of the list, for those who know no \pn.
void RtfWriter::putLabel(const ListMark& mark) {
  part_.numbering.next(mark);
  out_.put("{\\pntext");
  needsBlank_ = true;
  if (mark.style == ListMark::Style::Bullet) {
    const QString font = bulletFont(mark);
    if (!font.isEmpty()) {
      word("\\f", fontNumber(font));
    }
    putBullet(mark);
  } else {
    units(part_.numbering.label(mark));
  }
  out_.put("\\tab}");
  needsBlank_ = false;
}

/// The sign of the usual bullet is the symbol font's; any other stands in the font that it came with.
QString RtfWriter::bulletFont(const ListMark& mark) {
  return isUsual(mark) ? kBulletFont.toString() : mark.fontName;
}

void RtfWriter::putBullet(const ListMark& mark) {
  if (isUsual(mark)) {
    symbols(QString(QChar(kSymbolBullet)));
  } else if (isSymbolFont(mark.fontName)) {
    symbols(mark.before);
  } else {
    units(mark.before);
  }
}

void RtfWriter::putList(const ListMark& mark) {
  out_.put("{\\*\\pn");
  needsBlank_ = true;
  const bool isBullet = mark.style == ListMark::Style::Bullet;
  word(isBullet ? "\\pnlvlblt" : "\\pnlvlbody");
  if (mark.level > 0) {
    word("\\pnlvl", mark.level + 1);
  }
  if (isBullet && !bulletFont(mark).isEmpty()) {
    word("\\pnf", fontNumber(bulletFont(mark)));
  }
  if (!isBullet) {
    word(kNumeralWords[static_cast<size_t>(mark.style)]);
  }
  if (mark.withParents) {
    word("\\pnprev");
  }
  if (mark.start > 0) {
    word("\\pnstart", mark.start);
  }
  out_.put("\\pnindent0{\\pntxtb");
  needsBlank_ = true;
  if (isBullet) {
    putBullet(mark);
  } else {
    units(mark.before);
    out_.put("}{\\pntxta");
    needsBlank_ = true;
    units(mark.after);
  }
  out_.put("}}");
  needsBlank_ = false;
  if (part_.list > 0) {
    word("\\ls", part_.list);
  }
  if (part_.list > 0 && mark.level > 0) {
    word("\\ilvl", mark.level);
  }
}
