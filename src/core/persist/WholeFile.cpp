#include "core/persist/WholeFile.h"

#include "core/persist/modConstXML.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace modConstXML;

namespace {

/// Blocks and elements. A block that isn't there at all is none that was cut short: older files lack some.
constexpr std::array<Tag, 13> kPaired{Tag(kProject),     Tag(kLocations),  Tag(kLocation),  Tag(kItems),
                                      Tag(kItem),        Tag(kCharacters), Tag(kCharacter), Tag(kProjectNotes),
                                      Tag(kProjectNote), Tag(kScenes),     Tag(kScene),     Tag(kChapters),
                                      Tag(kChapter)};

constexpr qsizetype kLongestTag = 16;

/// What stands from a "<" to its ">"; empty where that is no short tag, or begins as none of ours does.
QByteArrayView tagAt(QByteArrayView text, qsizetype at) {
  const qsizetype letter = at + (at + 1 < text.size() && text[at + 1] == '/' ? 2 : 1);
  if (letter >= text.size() || !QByteArrayView("PLICSplics").contains(text[letter])) {
    return {};
  }
  const QByteArrayView from = text.sliced(at, std::min(kLongestTag, text.size() - at));
  const qsizetype end = from.indexOf('>');
  return end < 0 ? QByteArrayView() : from.first(end + 1);
}

/// The tags of a length, opening and closing: most of a file's tags are of none of them.
class TagsBySize {
 public:
  TagsBySize() {
    for (size_t i = 0; i < kPaired.size(); ++i) {
      add({kPaired[i].open, i, 1});
      add({kPaired[i].close, i, -1});
    }
  }

  struct Entry {
    QByteArrayView tag;
    size_t index;
    int step;
  };
  const std::vector<Entry>& ofSize(qsizetype size) const { return entries_[static_cast<size_t>(size)]; }

 private:
  void add(const Entry& entry) { entries_[static_cast<size_t>(entry.tag.size())].push_back(entry); }

  std::array<std::vector<Entry>, kLongestTag + 1> entries_;
};

/// A piece that is missing in the middle opens what it doesn't close, or the other way.
bool isBalanced(QByteArrayView text) {
  static const TagsBySize tags;
  std::array<qint64, kPaired.size()> open{};
  for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at + 1)) {
    const QByteArrayView found = tagAt(text, at);
    for (const TagsBySize::Entry& entry : tags.ofSize(found.size())) {
      open[entry.index] += Tags::startsWith(found, entry.tag) ? entry.step : 0;
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
