#pragma once

#include <QString>

class clsScene;

/// What a scene is called where its title is told: one without a title has a name too.
QString calledScene(const QString& title);

/// Whose eyes it is seen with, as it is shown: there is a word for nobody's.
QString shownViewpoint(const clsScene& scene);

/// "1 scene", "2 scenes".
QString countedScenes(qsizetype count);
