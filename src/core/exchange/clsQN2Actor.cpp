#include "core/exchange/clsQN2Actor.h"

#include "core/exchange/TextLines.h"
#include "core/infra/Paths.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/persist/OldFolder.h"

using namespace Qt::StringLiterals;

namespace {

QString textOf(OldFolder& folder, const QString& name) {
  return WholeText::fromBytes(folder.read(name).value_or(QByteArray()));
}

}  // namespace

QString clsQN2Actor::ActorPath(const QString& projectFolder) {
  return projectFolder + Files().NameOnDisk(projectFolder, u"Characters"_s) + Paths::separator();
}

QString clsQN2Actor::fileName() const {
  QString name = Name;
  Files().CleanString(name);
  return name;
}

QString clsQN2Actor::ActorFilename() const {
  return fileName() + u".txt"_s;
}

QString clsQN2Actor::BioFilename() const {
  return fileName() + u"_bio.txt"_s;
}

QString clsQN2Actor::GoalsFilename() const {
  return fileName() + u"_goals.txt"_s;
}

void clsQN2Actor::LoadActorDetails(OldFolder& folder) {
  for (const QString& line : linesOf(textOf(folder, ActorFilename()))) {
    const qsizetype colon = line.indexOf(u':');
    const QString key = line.first(std::max<qsizetype>(colon, 0)).trimmed().toUpper();
    if (key == u"FULLNAME"_s) {
      FullName = line.sliced(colon + 1).trimmed();
    } else if (key == u"ALTERNATENAMES"_s) {
      AlternateNames = line.sliced(colon + 1).trimmed();
    }
  }
  Bio = textOf(folder, BioFilename());
  Goals = textOf(folder, GoalsFilename());
}
