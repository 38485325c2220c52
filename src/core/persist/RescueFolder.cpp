#include "core/persist/RescueFolder.h"

#include "core/infra/Clock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ProjectSaver.h"

using namespace Qt::StringLiterals;

namespace {

/// Fits any title for the name of a file.
QString asFileName(const QString& title, const QString& otherwise) {
  constexpr qsizetype kMost = 60;
  QString name = title.simplified().left(kMost);
  Files().CleanString(name);
  return name.isEmpty() || name.startsWith(u'.') ? otherwise : name;
}

}  // namespace

bool RescueFolder::isBelow(const QString& file) {
  return Paths::identity(file).startsWith(Paths::identity(Paths::rescueFolder()) + Paths::separator());
}

QString RescueFolder::nameOfBook() const {
  return asFileName(project_.Title, u"Book without a name"_s);
}

QString RescueFolder::path() const {
  if (project_.rescueFolder_.isEmpty()) {
    project_.rescueFolder_ = Paths::rescueFolder() + Paths::separator() +
                             Clock::now().toString(u"yyyy-MM-dd HH.mm.ss "_s) + nameOfBook() + Paths::separator();
  }
  return project_.rescueFolder_;
}

QString RescueFolder::fileOf(clsScene& scene) const {
  return path() + asFileName(scene.Title, u"Scene"_s) + u" ("_s + QString::number(scene.ID()) + u").rtf"_s;
}

bool RescueFolder::holds(clsScene& scene) const {
  QByteArray text;
  return Files().LoadTextFile(fileOf(scene), text) && text == scene.TextRTF();
}

bool RescueFolder::keep(clsScene& scene) const {
  Files().MkMissingDir(path());
  const QString file = fileOf(scene);
  const bool kept = Files().SaveTextFile(file, QByteArrayView(scene.TextRTF()));
  Logging().LogEvent((kept ? u"The book has no place of its own; the text is kept in "_s : u"Could not save "_s) +
                     file);
  return kept;
}

QString RescueFolder::keepBook() const {
  Files().MkMissingDir(path());
  const QString file = path() + nameOfBook() + u".qnc4"_s;
  const bool kept = ProjectSaver(project_).saveCopy(file);
  Logging().LogEvent((kept ? u"The book could not be saved; it is kept in "_s : u"Could not save "_s) + file);
  return kept ? file : QString();
}
