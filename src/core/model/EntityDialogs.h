#pragma once

#include <QString>

#include <functional>
#include <optional>

class clsCharacter;
class clsItem;
class clsLocation;

/// What the chapter dialog takes and gives back.
struct ChapterDetails {
  qint32 ID = 0;
  QString Title;
  QString DescText;
  qint32 Wordcount = 0;
};

enum class EntityKind { Chapter, Character, Location, Item };

/// The modal windows that the model opens. The shell registers them; without one a question counts as cancelled.
struct EntityDialogs {
  /// The edited details, or nothing when cancelled. `adding` says that the chapter is a new one.
  std::function<std::optional<ChapterDetails>(const ChapterDetails&, bool adding)> chapter;
  /// They write into the object themselves; true when it was saved.
  std::function<bool(clsCharacter&, qint32 arg)> character;
  std::function<bool(clsLocation&)> location;
  std::function<bool(clsItem&)> item;
  /// The dialog of this kind and ID is open already: it comes back to its normal state and to the front.
  std::function<void(EntityKind kind, qint32 id)> bringForward;
  /// The list window in one of its modes.
  std::function<void(int mode, qint32 arg)> list;
};

EntityDialogs& entityDialogs();
void bringDialogForward(EntityKind kind, qint32 id);

inline constexpr int kListCharacters = 2;
inline constexpr int kListLocations = 6;
inline constexpr int kListItems = 7;
