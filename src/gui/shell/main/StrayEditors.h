#pragma once

#include <QList>

class SceneEditor;

/// The editors whose scene has left the open book and that hold text which no save has taken up: no scene leads to
/// them any more.
QList<SceneEditor*> strayTexts();
