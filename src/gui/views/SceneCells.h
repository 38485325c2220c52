#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

class clsScene;

/// What the lists of scenes show of one, wherever they stand.
namespace SceneCells {

/// In the language that is in force; empty for a scene whose status was never set.
QString status(const clsScene& scene);
/// All that can be chosen, in their order.
QStringList statuses();
/// "A" or "R", or the first letters of what these stand for in another language.
QString actionOrReaction(const clsScene& scene);
/// Both of them, as the title of their column.
QString letters();
/// What is read out in the place of cells that are short for something, by the numbers of their columns.
QHash<int, QString> spoken(const clsScene& scene, int viewpointColumn, int actionColumn);
/// Said in the place of scenes by a window that shows all of them when there is none.
QString whyNone();

}  // namespace SceneCells
