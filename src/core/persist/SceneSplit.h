#pragma once

#include "core/text/RichText.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

class clsScene;

/// One scene becomes several.
namespace SceneSplit {

/// The text cut at each separator, which goes; what is left of its line stays at the head of the piece behind. One
/// piece, the whole text, where there is none. Separators that overlap are counted from the end.
std::vector<RichText> cut(const RichText& text, QStringView separator);

/// Makes a scene of each text, in their order behind the source, and saves the book, which has its own place. The texts
/// are on the disk before the project file names them; the source's own text is left as it is, so that no kill loses a
/// word. Empty when that is done, else why not, as it may be told: the book is as it was then, on the disk too.
QString addBehind(clsScene& source, const std::vector<QByteArray>& texts);
/// The same with scenes that have their texts and plans, in no book yet. One without a character is told by who tells
/// the source.
QString addBehind(clsScene& source, const std::vector<std::shared_ptr<clsScene>>& scenes);

}  // namespace SceneSplit
