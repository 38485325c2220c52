#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

// What the sheets take and give back: the fields of an entity that a writer edits.

struct ChapterDetails {
  QString Title;
  QString DescText;
  /// Shown alone: its words, and the descriptions of its scenes in their order.
  qint32 Wordcount = 0;
  QStringList SceneDescs = {};

  bool operator==(const ChapterDetails&) const = default;
};

struct CharacterDetails {
  QString Title;
  QString FullName;
  QString AlternateNames;
  QString DescText;
  QString Tags;
  bool major = false;
  QString Bio;
  QString Goals;
  QString Notes;
  QString ImageFile;

  bool operator==(const CharacterDetails&) const = default;
};

/// Of a location or an item.
struct ThingDetails {
  QString Title;
  QString DescText;
  QString Tags;

  bool operator==(const ThingDetails&) const = default;
};

enum class EntityKind { Chapter, Character, Location, Item };

/// What a sheet is opened on.
struct SheetSubject {
  EntityKind kind;
  qint32 id;
  /// False when the entity has left the book meanwhile, or the book itself has: what is typed has no place to go to.
  std::function<bool()> isThere;
};

/// The same for a sheet of these values, with what takes them into the book while the sheet is still up.
template <class Details>
struct SubjectOf : SheetSubject {
  using Keep = std::function<void(const Details&)>;

  SubjectOf(SheetSubject subject, Keep keepTyped = {}) : SheetSubject(std::move(subject)), keep(std::move(keepTyped)) {}

  Keep keep;
};

/// The modal windows that the model opens. The shell registers them; without one a question counts as cancelled.
struct EntityDialogs {
  /// What was edited, or nothing when cancelled.
  std::function<std::optional<ChapterDetails>(const SubjectOf<ChapterDetails>&, const ChapterDetails&)> chapter;
  /// The same, on a tab counted from 0.
  std::function<std::optional<CharacterDetails>(const SubjectOf<CharacterDetails>&, const CharacterDetails&,
                                                qint32 tab)>
      character;
  std::function<std::optional<ThingDetails>(const SubjectOf<ThingDetails>&, const ThingDetails&)> thing;
  /// The dialog of this kind and ID is open already: it comes back to its normal state and to the front.
  std::function<void(EntityKind kind, qint32 id)> bringForward;
  /// The list window in one of its modes, to manage what is listed; `arg` is the ID that is selected at first, 0 for
  /// the first one.
  std::function<void(int mode, qint32 arg)> list;
};

EntityDialogs& entityDialogs();
void bringDialogForward(EntityKind kind, qint32 id);

inline constexpr int kListCharacters = 2;
inline constexpr int kListLocations = 6;
inline constexpr int kListItems = 7;
