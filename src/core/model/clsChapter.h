#pragma once

#include "core/model/IDList.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class KeyedFile;
class OlderFiles;
class TagView;
class clsScene;

/// Orders scenes: a title, a description and the IDs of its scenes in running order.
class clsChapter : public std::enable_shared_from_this<clsChapter> {
 public:
  qint32 ID();

  /// Set aside.
  bool Unused = false;
  QString Title;
  QString DescText;
  QString Tags;
  bool EditOpen = false;

  /// Words of its scenes. Without the unused ones an unused chapter has none; with them its own flag is ignored.
  qint32 Wordcount(bool includeUnused) const;
  /// Letters of all its scenes, unused or not.
  qint32 Lettercount() const;
  qint32 SceneCount() const { return scenes_.Count(); }
  /// The ID at a 1-based position; 0, and logged, outside.
  qint32 SceneID(qint32 index) const { return scenes_.atOrNone(index, "SceneID", "clsChapter"); }
  std::shared_ptr<clsScene> SceneByIndex(qint32 index) const;
  /// 1-based position; 0 when the ID isn't listed.
  qint32 SceneIndex(qint32 id) const { return scenes_.indexOf(id); }
  const IDList& SceneIDs() const { return scenes_; }

  /// Adds the scene at the end, to the project too where it isn't in it yet. A listed scene is logged and stays.
  void Addscene(const std::shared_ptr<clsScene>& scene);
  /// Before the position; at the end when that is 0 or above the count.
  void InsertScene(const std::shared_ptr<clsScene>& scene, qint32 position);
  /// An ID that isn't listed is ignored; the scene itself is untouched.
  void RemoveSceneByID(qint32 id) { scenes_.remove(id); }
  /// The chapter's list is the authority: scenes that name another chapter are corrected, and that is logged.
  void UpdateBelongsToChapter();

  /// The detail dialog; modal. True when it was confirmed.
  bool Edit() { return runDialog("Edit"); }
  /// The same for a new chapter.
  bool Add() { return runDialog("Add"); }

  /// Empties the list, Title and the ID; the other fields stay.
  void Clear();
  void GenerateID();
  void DataAsXML(QByteArray& out);
  void CreateFromXML(const TagView& element);
  /// From a file of a generation-3 project.
  void ImportQN3(const KeyedFile& file, OlderFiles& from);

 private:
  void adopt(const std::shared_ptr<clsScene>& scene);
  QStringList sceneDescs() const;
  bool runDialog(const char* routine);

  qint32 id_ = 0;
  IDList scenes_;
};
