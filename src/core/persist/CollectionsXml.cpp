#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Collections.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneFile.h"
#include "core/persist/SceneFolder.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

/// Elements are printed together up to about this size: one by one they would cost a call each.
constexpr qsizetype kPrintedTogether = 262144;

/// How a collection stands in the file, and whether the line about a closed file names the file's number.
struct BlockForm {
  Tag block;
  Tag element;
  bool tellsNumber = true;
};

template <class Traits>
constexpr BlockForm formOf();
template <>
constexpr BlockForm formOf<SceneTraits>() {
  return {kScenes, kScene, false};
}
template <>
constexpr BlockForm formOf<ChapterTraits>() {
  return {kChapters, kChapter, false};
}
template <>
constexpr BlockForm formOf<CharacterTraits>() {
  return {kCharacters, kCharacter};
}
template <>
constexpr BlockForm formOf<LocationTraits>() {
  return {kLocations, kLocation};
}
template <>
constexpr BlockForm formOf<ItemTraits>() {
  return {kItems, kItem};
}
template <>
constexpr BlockForm formOf<NoteTraits>() {
  return {kProjectNotes, kProjectNote};
}

/// By position, and each entity held while it is used: a progress caption yields, and what it yields to may add or
/// remove an entity.
template <class Collection, class Use>
void eachEntity(const Collection& collection, Use use) {
  for (qint32 i = 0; i < collection.Count(); ++i) {
    const typename Collection::Pointer entity = collection.begin()[i];
    use(*entity);
  }
}

/// Without an open file the writers say so in the log and report success all the same.
bool isOpen(int file, bool tellsNumber, const char* module) {
  if (file <= 0) {
    const QString what = tellsNumber ? u"is "_s + QString::number(file) : u"closed"_s;
    Logging().AddDebug(u"Unable to write data ... output file "_s + what + u'!', u"WriteXML"_s,
                       QString::fromLatin1(module));
  }
  return file > 0;
}

/// Prints a block: its tags, each on a line behind a tab, and what `appendElement` gives for each entity. A failure
/// is logged, makes the result false and goes on with the next element.
template <class Traits, class AppendElement>
bool writeBlock(int file, const EntityCollection<Traits>& collection, AppendElement appendElement) {
  constexpr BlockForm form = formOf<Traits>();
  if (!isOpen(file, form.tellsNumber, Traits::kModule)) {
    return true;
  }
  const Guard guard("WriteXML", Traits::kModule);
  bool result = true;
  QByteArray lines;
  lines.reserve(kPrintedTogether * 2);
  const auto print = [&] {
    result = guard([&] { Channels().Print(file, lines); }) && result;
    lines.resize(0);
  };
  lines.append('\t').append(form.block.open).append("\r\n");
  eachEntity(collection, [&](auto& entity) {
    result = guard([&] { appendElement(entity, lines); }) && result;
    lines.append("\r\n");
    if (lines.size() > kPrintedTogether) {
      print();
    }
  });
  lines.append('\t').append(form.block.close).append("\r\n");
  print();
  return result;
}

/// What was read of a block, and the highest of the IDs that stand in it.
template <class Traits>
struct BlockRead {
  std::vector<typename EntityCollection<Traits>::Pointer> entities;
  qint32 highestID = 0;
};

/// A new entity for each piece of the block that holds the element's opening tag, read from that piece without its
/// closing tag; `complete` does what is left to do with it, and a false ends the reading. False, and logged, at the
/// first error.
template <class Traits, class Complete>
bool readBlock(const TagView& xml, BlockRead<Traits>& read, Complete complete) {
  constexpr BlockForm form = formOf<Traits>();
  return Guard("CreateFromXML", Traits::kModule)([&] {
    for (const TagView& piece : xml.block(form.block).split(form.element.close)) {
      if (!piece.contains(form.element)) {
        continue;
      }
      const auto entity = std::make_shared<typename Traits::Entity>();
      entity->CreateFromXML(piece);
      if (!complete(*entity)) {
        return;
      }
      read.highestID = std::max(read.highestID, piece.integer32(kID));
      read.entities.push_back(entity);
    }
  });
}

}  // namespace

template <class Traits>
bool EntityCollection<Traits>::WriteXML(int file) const {
  return writeBlock(file, *this, [](Entity& entity, QByteArray& lines) { entity.DataAsXML(lines); });
}

template <class Traits>
bool EntityCollection<Traits>::CreateFromXML(const TagView& block) {
  Clear();
  BlockRead<Traits> read;
  const bool result = readBlock(block, read, [](Entity&) { return true; });
  addRead(read.entities, read.highestID);
  return result;
}

template bool EntityCollection<ChapterTraits>::WriteXML(int) const;
template bool EntityCollection<CharacterTraits>::WriteXML(int) const;
template bool EntityCollection<LocationTraits>::WriteXML(int) const;
template bool EntityCollection<ItemTraits>::WriteXML(int) const;
template bool EntityCollection<NoteTraits>::WriteXML(int) const;
template bool EntityCollection<ChapterTraits>::CreateFromXML(const TagView&);
template bool EntityCollection<CharacterTraits>::CreateFromXML(const TagView&);
template bool EntityCollection<LocationTraits>::CreateFromXML(const TagView&);
template bool EntityCollection<ItemTraits>::CreateFromXML(const TagView&);
template bool EntityCollection<NoteTraits>::CreateFromXML(const TagView&);

bool clsScenes::WriteXML(int file, bool singleFile) const {
  qint32 number = 0;
  return writeBlock(file, *this, [&](clsScene& scene, QByteArray& lines) {
    ++number;
    if (SavingNum) {
      SavingNum(number);
    }
    scene.DataAsXML(lines, singleFile);
  });
}

bool clsScenes::CreateFromXML(const TagView& block, bool singleFile, QString* missing) {
  Clear();
  SceneFolder folder(*g_Project);
  BlockRead<SceneTraits> read;
  bool result = true;
  qint32 number = 0;
  const bool isRead = readBlock(block, read, [&](clsScene& scene) {
    ++number;
    if (LoadingNum) {
      LoadingNum(number);
    }
    // A backup may hold the text that has no file.
    const SceneFile file(scene);
    if (singleFile) {
      file.knowFile();
    }
    result = singleFile || file.load(folder) || !scene.TextUnread();
    if (!result && missing != nullptr) {
      *missing = scene.RTFFileWithPath();
    }
    return result;
  });
  addRead(read.entities, read.highestID);
  for (const Pointer& scene : *this) {
    scene->inScenes_ = true;
  }
  return isRead && result;
}
