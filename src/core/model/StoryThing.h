#pragma once

#include "core/text/Tags.h"

#include <QByteArray>
#include <QString>

class KeyedFile;
class OlderFiles;
class TagView;

/// What a location and an item of the story have in common: everything but the names of dialog and table.
class StoryThing {
 public:
  bool Unused = false;
  QString Title;
  /// Position in the list; written to the project file and not read back.
  qint16 SortOrder = 0;
  QString Tags;
  QString DescText;
  bool EditOpen = false;

  /// Empties Title, DescText and the ID; the other fields stay.
  void Clear();

 protected:
  ~StoryThing() = default;
  void appendXML(QByteArray& out, const Tag& element, qint32 id) const;
  void readXML(const TagView& element, const char* module);
  void importQN3(const KeyedFile& file, OlderFiles& from, const QString& defaultTitle);

  qint32 id_ = 0;
};
