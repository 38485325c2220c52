#pragma once

#include <QList>

class clsChapter;
class clsScene;

/// What a scene has of the people, places and things of the story.
enum class CastKind { Character, Location, Item };

/// Moves within the book, as a drag of rows makes them. An ID that nothing in the book has is passed over. Nothing is
/// saved but the scenes' own texts; what changed is marked in the change tables.
namespace StoryMoves {

/// Each scene in turn to the position, which was looked up before the first one left: so several that come from below
/// land in reverse order, and several from above keep theirs. Scenes of another chapter are passed over.
void moveScenes(clsChapter& chapter, const QList<qint32>& ids, qint32 position);
/// To the end of the chapter, in their order.
void moveScenesTo(clsChapter& target, const QList<qint32>& ids);
/// To the place of the chapter `target`: behind it where it is the last of the book. The ID of the chapter that was
/// moved last; 0 when none was.
qint32 moveChapters(const QList<qint32>& ids, qint32 target);

/// The first character of a scene without one narrates it. What is in the scene already stays where it is.
void addToScene(clsScene& scene, CastKind kind, const QList<qint32>& ids);
void removeFromScene(clsScene& scene, CastKind kind, const QList<qint32>& ids);

}  // namespace StoryMoves
