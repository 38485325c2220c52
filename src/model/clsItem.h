#pragma once

#include "model/StoryThing.h"

/// A thing of the story.
class clsItem : public StoryThing {
 public:
  qint32 ID();
  void setID(qint32 id) { id_ = id; }
  /// Opens the dialog, modally. True when it was saved.
  bool Edit();
  /// Empties Title, DescText and the ID; the other fields stay.
  void Clear();
  void GenerateID();
  void DataAsXML(QByteArray& out);
  void CreateFromXML(QByteArrayView xml);
};
