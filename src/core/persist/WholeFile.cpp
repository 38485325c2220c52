#include "core/persist/WholeFile.h"

#include "core/persist/modConstXML.h"

#include <algorithm>
#include <array>

using namespace modConstXML;

namespace {

constexpr std::array<Tag, 7> kBlocks{Tag(kProject),      Tag(kLocations), Tag(kItems),   Tag(kCharacters),
                                     Tag(kProjectNotes), Tag(kScenes),    Tag(kChapters)};

/// A block that isn't there at all is none that was cut short: older files lack some.
bool isClosed(QByteArrayView text, const Tag& block) {
  const qsizetype open = Tags::find(text, block.open);
  return open < 0 || Tags::find(text, block.close, open) >= 0;
}

}  // namespace

bool isWholeProjectFile(QByteArrayView text) {
  const QByteArrayView content = text.trimmed();
  const QByteArrayView closing = Tag(kRoot).close;
  const bool endsWell = content.size() >= closing.size() && Tags::startsWith(content.last(closing.size()), closing);
  return endsWell && !text.contains('\0') &&
         std::all_of(kBlocks.begin(), kBlocks.end(), [&](const Tag& block) { return isClosed(content, block); });
}
