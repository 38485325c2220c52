#include "core/text/RichFormat.h"

#include <algorithm>

namespace {

constexpr int kMaxHalfPoints = 3276;
constexpr int kMaxTwips = 31680;
constexpr int kMaxTabStops = 64;
constexpr int kMaxFontName = 128;
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

CharFormat normalised(CharFormat format) {
  format.fontName = cleanName(std::move(format.fontName));
  format.halfPoints = std::clamp(format.halfPoints, 0, kMaxHalfPoints);
  keepColourBits(format.colour);
  keepColourBits(format.background);
  return format;
}

ParagraphFormat normalised(ParagraphFormat format) {
  for (const auto length : kParagraphLengths) {
    format.*length = withinPage(format.*length);
  }
  format.lineSpacingIsFactor = format.lineSpacingIsFactor && format.lineSpacing != 0;
  if (!format.tabStops.isEmpty()) {
    sortTabStops(format.tabStops);
  }
  return format;
}

size_t qHash(const CharLook& look, size_t seed) noexcept {
  uint bits = static_cast<uint>(look.script);
  for (const auto isOn : kCharSwitches) {
    bits = bits << 1 | static_cast<uint>(look.*isOn);
  }
  return qHashMulti(seed, look.halfPoints, bits);
}

size_t qHash(const CharFormat& format, size_t seed) noexcept {
  return qHashMulti(seed, static_cast<const CharLook&>(format), format.fontName, format.colour.value_or(~0U),
                    format.background.value_or(~0U));
}

size_t qHash(const ParagraphFormat& format, size_t seed) noexcept {
  seed = qHashMulti(seed, int(format.alignment), format.lineSpacingIsFactor, format.bullet);
  for (const auto length : kParagraphLengths) {
    seed = qHashMulti(seed, format.*length);
  }
  for (const TabStop& stop : format.tabStops) {
    seed = qHashMulti(seed, stop.position, int(stop.kind));
  }
  return seed;
}
