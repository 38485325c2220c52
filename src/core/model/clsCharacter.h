#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class KeyedFile;
class OlderFiles;
class TagView;

/// A person of the story.
class clsCharacter : public std::enable_shared_from_this<clsCharacter> {
 public:
  qint32 ID();

  /// The short name, used in lists and for highlighting in the text.
  const QString& Title() const { return title_; }
  /// Marks the record as updated, unless the name is the placeholder "N/A".
  void setTitle(const QString& title);

  bool Unused = false;
  QString AlternateNames;
  QString FullName;
  /// Path of a picture.
  QString ImageFile;
  /// Major character, as against minor.
  bool major = false;
  qint16 SortOrder = 0;
  QString Tags;
  QString Bio;
  QString DescText;
  QString Goals;
  QString Notes;
  bool EditOpen = false;

  /// Opens the dialog on the tab `arg`, counted from 0, modally. True when it was confirmed.
  bool Edit(qint32 arg);
  /// Empties Title, ID, Bio, DescText, Goals and Notes; the other fields stay.
  void Clear();
  void GenerateID();
  void DataAsXML(QByteArray& out);
  void CreateFromXML(const TagView& element);
  /// From a file of a generation-3 project.
  void ImportQN3(const KeyedFile& file, OlderFiles& from);

 private:
  qint32 id_ = 0;
  QString title_;
};
