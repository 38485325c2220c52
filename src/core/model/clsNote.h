#pragma once

#include <QByteArray>
#include <QString>

class TagView;

/// A free note attached to the project as a whole.
class clsNote {
 public:
  qint32 ID();

  QString Title;
  QString Tags;
  /// The note's text.
  QString DescText;

  /// Tags stay.
  void Clear();
  void GenerateID();
  /// Appends the element as it stands in the project file, without the last line's end.
  void DataAsXML(QByteArray& out);
  void CreateFromXML(const TagView& element);

 private:
  qint32 id_ = 0;
};
