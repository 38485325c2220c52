#include "core/text/RichFormat.h"

#include <algorithm>

namespace {

constexpr int kMaxHalfPoints = 3276;
constexpr int kMaxTwips = 31680;
constexpr int kMaxTabStops = 64;
constexpr int kMaxFontName = 128;
constexpr qsizetype kMaxField = 1 << 16;
constexpr int kMaxLanguage = 0xFFFF;
constexpr quint32 kColourBits = 0xFFFFFF;

int withinPage(int twips) {
  return std::clamp(twips, -kMaxTwips, kMaxTwips);
}

bool isControl(QChar character) {
  return character.unicode() < 0x20 || character.isSurrogate();
}

QString cleanName(QString name) {
  if (std::any_of(name.cbegin(), name.cend(), isControl)) {
    name.removeIf(isControl);
  }
  return name.trimmed().left(kMaxFontName).trimmed();
}

void keepColourBits(std::optional<quint32>& colour) {
  if (colour) {
    *colour &= kColourBits;
  }
}

QString cleanField(QString field) {
  field.removeIf([](QChar unit) { return unit.unicode() < 0x20; });
  return field.trimmed().left(kMaxField).trimmed();
}

/// The next argument of a field: in quotes, where a backslash may stand before a quote or another one, or up to a
/// blank.
QString takeArgument(QStringView& rest) {
  rest = rest.trimmed();
  const bool isQuoted = rest.startsWith(u'"');
  const QChar last = isQuoted ? u'"' : u' ';
  QString argument;
  qsizetype at = isQuoted ? 1 : 0;
  for (; at < rest.size() && rest[at] != last; ++at) {
    const bool isEscape =
        isQuoted && rest[at] == u'\\' && at + 1 < rest.size() && (rest[at + 1] == u'"' || rest[at + 1] == u'\\');
    at += isEscape ? 1 : 0;
    argument += rest[at];
  }
  rest = rest.sliced(std::min(at + 1, rest.size()));
  return argument;
}

bool isSameObject(const CharFormat& a, const CharFormat& b) {
  return a.object == b.object || (a.object && b.object && *a.object == *b.object);
}

void sortTabStops(QList<TabStop>& stops) {
  for (TabStop& stop : stops) {
    stop.position = withinPage(stop.position);
  }
  const auto before = [](const TabStop& a, const TabStop& b) { return a.position < b.position; };
  const auto same = [](const TabStop& a, const TabStop& b) { return a.position == b.position; };
  std::stable_sort(stops.begin(), stops.end(), before);
  stops.erase(std::unique(stops.begin(), stops.end(), same), stops.end());
  stops.resize(std::min<qsizetype>(stops.size(), kMaxTabStops));
}

}  // namespace

bool operator==(const CharFormat& a, const CharFormat& b) {
  return static_cast<const CharLook&>(a) == static_cast<const CharLook&>(b) && a.fontName == b.fontName &&
         a.colour == b.colour && a.background == b.background && a.associatedFont == b.associatedFont &&
         a.field == b.field && isSameObject(a, b);
}

QString linkAddress(QStringView field) {
  QStringView rest = field;
  if (takeArgument(rest).compare(u"HYPERLINK", Qt::CaseInsensitive) != 0) {
    return {};
  }
  QString address;
  QString place;
  while (!rest.isEmpty()) {
    const QString argument = takeArgument(rest);
    if (argument.compare(u"\\l", Qt::CaseInsensitive) == 0) {
      place = takeArgument(rest);
    } else if (argument.compare(u"\\o", Qt::CaseInsensitive) == 0 ||
               argument.compare(u"\\t", Qt::CaseInsensitive) == 0) {
      takeArgument(rest);
    } else if (address.isEmpty() && !argument.startsWith(u'\\')) {
      address = argument;
    }
  }
  return place.isEmpty() ? address : address + u'#' + place;
}

CharFormat normalised(CharFormat format) {
  format.fontName = cleanName(std::move(format.fontName));
  format.associatedFont = cleanName(std::move(format.associatedFont));
  if (!format.field.isEmpty()) {
    format.field = cleanField(std::move(format.field));
  }
  for (int* const size : {&format.halfPoints, &format.associated.halfPoints}) {
    *size = std::clamp(*size, 0, kMaxHalfPoints);
  }
  for (int* const language : {&format.language, &format.associated.language}) {
    *language = std::clamp(*language, 0, kMaxLanguage);
  }
  format.letterSpacing = withinPage(format.letterSpacing);
  const bool hasOther = format.associated != AssociatedLook() || !format.associatedFont.isEmpty();
  if (hasOther && format.direction == CharLook::Direction::None) {  // other letters than those of which direction?
    format.direction = CharLook::Direction::LeftToRight;
  }
  keepColourBits(format.colour);
  keepColourBits(format.background);
  return format;
}

ParagraphFormat normalised(ParagraphFormat format) {
  for (const auto length : kParagraphLengths) {
    format.*length = withinPage(format.*length);
  }
  keepColourBits(format.background);
  format.list.fontName = cleanName(std::move(format.list.fontName));
  format.list = normalised(std::move(format.list));
  format.lineSpacingIsFactor = format.lineSpacingIsFactor && format.lineSpacing != 0;
  if (!format.tabStops.isEmpty()) {
    sortTabStops(format.tabStops);
  }
  return format;
}

size_t qHash(const CharLook& look, size_t seed) noexcept {
  uint bits =
      static_cast<uint>(look.script) << 8 | static_cast<uint>(look.direction) << 4 | static_cast<uint>(look.underline);
  for (const auto isOn : kCharSwitches) {
    bits = bits << 1 | static_cast<uint>(look.*isOn);
  }
  const AssociatedLook& other = look.associated;
  return qHashMulti(seed, look.halfPoints, bits, look.letterSpacing, look.language, other.halfPoints, other.language,
                    other.bold, other.italic);
}

size_t qHash(const CharFormat& format, size_t seed) noexcept {
  return qHashMulti(seed, static_cast<const CharLook&>(format), format.fontName, format.colour.value_or(~0U),
                    format.background.value_or(~0U), format.field, format.object ? hashOf(*format.object) : 0);
}

size_t qHash(const ParagraphFormat& format, size_t seed) noexcept {
  seed = qHashMulti(seed, int(format.alignment), format.lineSpacingIsFactor, format.rightToLeft, format.list,
                    format.background.value_or(~0U));
  for (const auto length : kParagraphLengths) {
    seed = qHashMulti(seed, format.*length);
  }
  for (const auto isOn : kParagraphSwitches) {
    seed = qHashMulti(seed, format.*isOn);
  }
  for (const TabStop& stop : format.tabStops) {
    seed = qHashMulti(seed, stop.position, int(stop.kind), int(stop.leader));
  }
  return seed;
}
