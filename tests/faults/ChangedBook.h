#pragma once

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>

// What a writer does to the small book before a save that goes wrong.

inline const QString kNewTitle = QStringLiteral("A changed book");
inline const QString kNewGoal = QStringLiteral("To come back");
inline constexpr std::array kChangedScenes{1, 4};

inline QByteArray newText(qint32 scene) {
  return "{\\rtf1\\ansi\\ansicpg1252\\pard New words of scene " + QByteArray::number(scene) + "\\par\r\n}\r\n";
}

/// Title, a plan, two texts and a new scene at the end of the second chapter.
inline void changeBook() {
  g_Project->Title = kNewTitle;
  g_Project->SceneByID(2)->Goal = kNewGoal;
  for (const qint32 id : kChangedScenes) {
    g_Project->SceneByID(id)->setTextRTF(newText(id));
  }
  const auto added = std::make_shared<clsScene>();
  g_Project->ChapterByID(2)->Addscene(added);
  added->Title = QStringLiteral("Added");
  added->setTextRTF(newText(added->ID()));
}
