#pragma once

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QByteArray>
#include <QString>

#include <csignal>
#include <memory>
#include <unistd.h>

// What a writer does to a book before a save that goes wrong.

inline QByteArray newText(qint32 scene) {
  return "{\\rtf1\\ansi\\ansicpg1252\\pard New words of scene " + QByteArray::number(scene) + "\\par\r\n}\r\n";
}

/// Title, a plan, every third text and a new scene at the end of the second chapter.
inline void changeBook() {
  g_Project->Title = QStringLiteral("A changed book");
  g_Project->SceneByID(2)->Goal = QStringLiteral("To come back");
  for (qint32 i = 1; i <= g_Project->SceneCount(); i += 3) {
    const auto scene = g_Project->SceneByIndex(i);
    scene->setTextRTF(newText(scene->ID()));
  }
  const auto added = std::make_shared<clsScene>();
  g_Project->ChapterByID(2)->Addscene(added);
  added->Title = QStringLiteral("Added");
  added->setTextRTF(newText(added->ID()));
}

/// Calls count while one of these lives; what brings the faults in watches for the signal.
class CountedCalls {
 public:
  CountedCalls() { mark(); }
  ~CountedCalls() { mark(); }
  CountedCalls(const CountedCalls&) = delete;
  CountedCalls& operator=(const CountedCalls&) = delete;

 private:
  static void mark() { ::kill(::getpid(), SIGUSR1); }
};
