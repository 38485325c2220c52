#include "core/persist/WholeFile.h"

#include "core/persist/modConstXML.h"

#include <algorithm>
#include <array>

using namespace modConstXML;

namespace {

/// Blocks and elements. A block that isn't there at all is none that was cut short: older files lack some.
constexpr std::array<Tag, 13> kPaired{Tag(kProject),     Tag(kLocations),  Tag(kLocation),  Tag(kItems),
                                      Tag(kItem),        Tag(kCharacters), Tag(kCharacter), Tag(kProjectNotes),
                                      Tag(kProjectNote), Tag(kScenes),     Tag(kScene),     Tag(kChapters),
                                      Tag(kChapter)};

constexpr qsizetype kLongestTag = 16;

/// What stands from a "<" to its ">"; empty where that is no short tag.
QByteArrayView tagAt(QByteArrayView text, qsizetype at) {
  const QByteArrayView from = text.sliced(at, std::min(kLongestTag, text.size() - at));
  const qsizetype end = from.indexOf('>');
  return end < 0 ? QByteArrayView() : from.first(end + 1);
}

bool isTag(QByteArrayView found, QByteArrayView tag) {
  return found.size() == tag.size() && Tags::startsWith(found, tag);
}

/// A piece that is missing in the middle opens what it doesn't close, or the other way.
bool isBalanced(QByteArrayView text) {
  std::array<qint64, kPaired.size()> open{};
  for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at + 1)) {
    const QByteArrayView found = tagAt(text, at);
    for (size_t i = 0; i < kPaired.size(); ++i) {
      open[i] += isTag(found, kPaired[i].open) ? 1 : isTag(found, kPaired[i].close) ? -1 : 0;
    }
  }
  return std::all_of(open.begin(), open.end(), [](qint64 left) { return left == 0; });
}

}  // namespace

bool isWholeProjectFile(QByteArrayView text) {
  const QByteArrayView content = text.trimmed();
  const QByteArrayView closing = Tag(kRoot).close;
  const bool endsWell = content.size() >= closing.size() && Tags::startsWith(content.last(closing.size()), closing);
  return endsWell && !text.contains('\0') && isBalanced(content);
}
