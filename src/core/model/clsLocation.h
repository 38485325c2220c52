#pragma once

#include "core/model/StoryThing.h"

/// A place of the story.
class clsLocation : public StoryThing {
 public:
  qint32 ID();
  /// Opens the dialog, modally. True when it was saved.
  bool Edit();
  void GenerateID();
  void DataAsXML(QByteArray& out);
  void CreateFromXML(const TagView& element);
};
