#include "core/infra/FileChannels.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Collections.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsScene.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Elements are printed together up to about this size: one by one they would cost a call each.
constexpr qsizetype kPrintedTogether = 262144;

/// By position, and each entity held while it is used: a progress caption yields, and what it yields to may add or
/// remove an entity.
template <class Collection, class Use>
void eachEntity(const Collection& collection, Use use) {
  for (qint32 i = 0; i < collection.Count(); ++i) {
    const typename Collection::Pointer entity = collection.begin()[i];
    use(*entity);
  }
}

/// Prints a block: its tags, each on a line behind a tab, and what `appendElement` gives for each entity. A failure
/// is logged, makes the result false and goes on with the next element.
template <class Collection, class AppendElement>
bool writeBlock(int file, const Tag& block, const Collection& collection, const Guard& guard,
                AppendElement appendElement) {
  bool result = true;
  QByteArray lines;
  lines.reserve(kPrintedTogether * 2);
  const auto print = [&] {
    result = guard([&] { Channels().Print(file, lines); }) && result;
    lines.resize(0);
  };
  lines.append('\t').append(block.open).append("\r\n");
  eachEntity(collection, [&](auto& entity) {
    result = guard([&] { appendElement(entity, lines); }) && result;
    lines.append("\r\n");
    if (lines.size() > kPrintedTogether) {
      print();
    }
  });
  lines.append('\t').append(block.close).append("\r\n");
  print();
  return result;
}

/// Without an open file the writers say so in the log and report success all the same.
bool isOpen(int file, const QString& what, const char* routine, const char* module) {
  if (file > 0) {
    return true;
  }
  Logging().AddDebug(what, QString::fromLatin1(routine), QString::fromLatin1(module));
  return false;
}

QString closedMessage() {
  return u"Unable to write data ... output file closed!"_s;
}

QString numberMessage(int file) {
  return u"Unable to write data ... output file is "_s + QString::number(file) + u'!';
}

/// The entities of a block: each piece that holds the element's opening tag, without its closing tag.
template <class Read>
void readBlock(const TagView& xml, const Tag& block, const Tag& element, Read read) {
  for (const TagView& piece : xml.block(block).split(element.close)) {
    if (piece.contains(element) && !read(piece)) {
      return;
    }
  }
}

/// Reads a whole block of entities that have no file of their own.
template <class Entity, class Add>
bool readEntities(const TagView& xml, const Tag& block, const Tag& element, const Guard& guard, Add add) {
  return guard([&] {
    readBlock(xml, block, element, [&](const TagView& piece) {
      const auto entity = std::make_shared<Entity>();
      entity->CreateFromXML(piece);
      add(entity);
      return true;
    });
  });
}

template <class Collection>
bool writeNumbered(int file, const Tag& block, const Collection& collection, const char* module) {
  if (!isOpen(file, numberMessage(file), "WriteXML", module)) {
    return true;
  }
  return writeBlock(file, block, collection, Guard("WriteXML", module),
                    [](auto& entity, QByteArray& lines) { entity.DataAsXML(lines); });
}

}  // namespace

using namespace modConstXML;

bool clsScenes::WriteXML(int file, bool singleFile) {
  if (!isOpen(file, closedMessage(), "WriteXML", "clsScenes")) {
    return true;
  }
  qint32 number = 0;
  return writeBlock(file, kScenes, *this, Guard("WriteXML", "clsScenes"), [&](clsScene& scene, QByteArray& lines) {
    ++number;
    if (SavingNum) {
      SavingNum(number);
    }
    scene.DataAsXML(lines, singleFile);
  });
}

bool clsScenes::CreateFromXML(QByteArrayView xml, bool singleFile) {
  return CreateFromXML(TagView(TagIndex(xml)), singleFile);
}

bool clsScenes::CreateFromXML(const TagView& block, bool singleFile) {
  Clear();
  bool result = true;
  qint32 number = 0;
  const Guard guard("CreateFromXML", "clsScenes");
  const bool read = guard([&] {
    readBlock(block, kScenes, kScene, [&](const TagView& piece) {
      ++number;
      if (LoadingNum) {
        LoadingNum(number);
      }
      const auto scene = std::make_shared<clsScene>();
      scene->CreateFromXML(piece);
      result = singleFile || scene->LoadRTF();
      if (result) {
        Addscene(scene);
      }
      return result;
    });
  });
  return read && result;
}

void clsScenes::NameScenesText() {
  // Most saves find every scene named.
  if (std::none_of(begin(), end(), [](const Pointer& scene) { return scene->RTFFilename().isEmpty(); })) {
    return;
  }
  QSet<QString> taken = TextFileNames();
  for (const Pointer& scene : *this) {
    scene->NameRTFFile(taken);
  }
}

bool clsScenes::SaveScenesText(bool force) {
  bool result = true;
  const bool mirror = clsScene::mirrorWanted();
  const Guard guard("SaveScenesText", "clsScenes");
  eachEntity(*this, [&](clsScene& scene) { result = guard([&] { scene.SaveRTF(force, mirror); }) && result; });
  return result;
}

bool clsChapters::WriteXML(int file) {
  if (!isOpen(file, closedMessage(), "WriteXML", "clsChapters")) {
    return true;
  }
  return writeBlock(file, kChapters, *this, Guard("WriteXML", "clsChapters"),
                    [](clsChapter& chapter, QByteArray& lines) { chapter.DataAsXML(lines); });
}

bool clsChapters::CreateFromXML(QByteArrayView xml) {
  return CreateFromXML(TagView(TagIndex(xml)));
}

bool clsChapters::CreateFromXML(const TagView& block) {
  Clear();
  return readEntities<clsChapter>(block, kChapters, kChapter, Guard("CreateFromXML", "clsChapters"),
                                  [this](const Pointer& chapter) { AddChapter(chapter); });
}

bool clsCharacters::WriteXML(int file) {
  return writeNumbered(file, kCharacters, *this, "clsCharacters");
}

bool clsCharacters::CreateFromXML(QByteArrayView xml) {
  return CreateFromXML(TagView(TagIndex(xml)));
}

bool clsCharacters::CreateFromXML(const TagView& block) {
  Clear();
  return readEntities<clsCharacter>(block, kCharacters, kCharacter, Guard("CreateFromXML", "clsCharacters"),
                                    [this](const Pointer& character) { AddChar(character); });
}

bool clsLocations::WriteXML(int file) {
  return writeNumbered(file, kLocations, *this, "clsLocations");
}

bool clsLocations::CreateFromXML(QByteArrayView xml) {
  return CreateFromXML(TagView(TagIndex(xml)));
}

bool clsLocations::CreateFromXML(const TagView& block) {
  Clear();
  return readEntities<clsLocation>(block, kLocations, kLocation, Guard("CreateFromXML", "clsLocations"),
                                   [this](const Pointer& location) { AddLocation(location); });
}

bool clsItems::WriteXML(int file) {
  return writeNumbered(file, kItems, *this, "clsItems");
}

bool clsItems::CreateFromXML(QByteArrayView xml) {
  return CreateFromXML(TagView(TagIndex(xml)));
}

bool clsItems::CreateFromXML(const TagView& block) {
  Clear();
  return readEntities<clsItem>(block, kItems, kItem, Guard("CreateFromXML", "clsItems"),
                               [this](const Pointer& item) { AddItem(item); });
}

bool clsNotes::WriteXML(int file) {
  return writeNumbered(file, kProjectNotes, *this, "clsNotes");
}

bool clsNotes::CreateFromXML(QByteArrayView xml) {
  return CreateFromXML(TagView(TagIndex(xml)));
}

bool clsNotes::CreateFromXML(const TagView& block) {
  Clear();
  return readEntities<clsNote>(block, kProjectNotes, kProjectNote, Guard("CreateFromXML", "clsNotes"),
                               [this](const Pointer& note) { AddNote(note); });
}
