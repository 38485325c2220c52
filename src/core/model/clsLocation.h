#pragma once

#include "core/model/StoryThing.h"

#include <memory>

/// A place of the story.
class clsLocation : public StoryThing, public std::enable_shared_from_this<clsLocation> {
 public:
  qint32 ID();
  /// Opens the dialog, modally. True when it was confirmed.
  bool Edit();
  void GenerateID();
  void DataAsXML(QByteArray& out);
  void CreateFromXML(const TagView& element);
  /// From a file of a generation-3 project.
  void ImportQN3(const KeyedFile& file, OlderFiles& from);
};
