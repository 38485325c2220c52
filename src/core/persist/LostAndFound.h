#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

class clsChapter;
class clsScene;

/// A text of the project that stands in no chapter: a scene that no chapter lists, or an RTF file of the project's
/// folder that no scene names.
struct LostText {
  enum class Kind { Scene, File };

  Kind kind = Kind::Scene;
  /// 0 for a file.
  qint32 sceneID = 0;
  /// What the scene is called, or the name of the file.
  QString title;
  /// File name only; empty for a scene that was never saved.
  QString fileName;
  /// Of the file; invalid when there is none.
  QDateTime date;
};

/// What a list tells of a text.
struct TextGlance {
  qint32 words = 0;
  /// At most 60 characters, on one line.
  QString firstWords;
};

/// The texts of g_Project that no chapter holds. Nothing here deletes a file or writes to one.
namespace LostAndFound {

/// The scenes in the project's order, then the files by name; links and what is no plain file are passed over. A
/// project without a file has no folder. No text is read. A long folder yields to the message loop.
std::vector<LostText> find();

/// The RTF; nothing for a scene that has gone and for a file that has gone, can't be read or is beyond all measure.
std::optional<QByteArray> textOf(const LostText& lost);
std::optional<TextGlance> glanceAt(const LostText& lost);

/// Puts it at the end of the chapter: a scene as it is, a file as a new scene whose own file it is from now on. Where
/// the project file can't hold the name of the file, the new scene gets a file of its own with the next save. False,
/// and nothing is changed, when there is no text to be had.
bool putIntoChapter(const LostText& lost, clsChapter& chapter);

/// The scene's text stands in its file, or there is none: it can leave the project without a loss.
bool mayBeRemoved(const clsScene& scene);

}  // namespace LostAndFound
