#pragma once

#include <QString>

/// What a scene is called where its title is told: one without a title has a name too.
QString calledScene(const QString& title);

/// "1 scene", "2 scenes".
QString countedScenes(qsizetype count);
