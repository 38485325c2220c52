#pragma once

#include <QList>

#include <functional>

class clsChapter;
class clsScene;
class frmMain;

/// What commands do to a scene of the book. A scene that is open in an editor isn't touched: the editor would write
/// over it.
namespace BookScenes {

/// Changes the scene and saves it. False when it is open in an editor.
bool change(qint32 id, const std::function<void(clsScene&)>& what);
/// Says so when anything was.
void tellRefused(bool anyRefused);
/// Whether all of them leave the book: none is open in an editor, the question was answered by Yes, and the text of
/// each is in its file now. Says why not.
bool mayRemove(frmMain& main, const QList<qint32>& ids, const QString& question);
/// Takes the scene out of its chapter and the project. Its file stays where it is.
void remove(clsChapter& chapter, qint32 id);

}  // namespace BookScenes
