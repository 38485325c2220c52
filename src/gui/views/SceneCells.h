#pragma once

#include <QHash>
#include <QString>

class clsScene;

/// What the lists of scenes show of one, wherever they stand.
namespace SceneCells {

/// Empty for a scene whose status was never set.
QString status(const clsScene& scene);
/// "A" or "R".
QString actionOrReaction(const clsScene& scene);
/// What is read out in the place of cells that are short for something, by the numbers of their columns.
QHash<int, QString> spoken(const clsScene& scene, int viewpointColumn, int actionColumn);
/// Said in the place of scenes by a window that shows all of them when there is none.
QString whyNone();

}  // namespace SceneCells
