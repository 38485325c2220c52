#include "core/exchange/ImportQN2.h"

#include "core/exchange/clsQN2Project.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneSplit.h"
#include "core/text/cSharedText.h"

#include <QHash>
#include <QList>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The characters that come of actors, by the names in capitals.
class Cast {
 public:
  explicit Cast(const clsQN2Project& from) : from_(from) {}

  /// 0 for an actor that isn't known.
  qint32 idOf(const QString& actor) {
    const qint32 number = from_.ActorNum(actor);
    if (number < 0) {
      return 0;
    }
    qint32& id = ids_[actor.toUpper()];
    if (id == 0) {
      id = add(from_.Actors[static_cast<size_t>(number)]);
    }
    return id;
  }
  void addUnused() {
    for (const clsQN2Actor& actor : from_.Actors) {
      if (!ids_.contains(actor.Name.toUpper())) {
        idOf(actor.Name);
        Logging().LogEvent(u"Added "_s + actor.Name + u" (Unused Character)"_s);
      }
    }
  }

 private:
  static qint32 add(const clsQN2Actor& actor) {
    const auto character = std::make_shared<clsCharacter>();
    character->setTitle(actor.Name);
    character->AlternateNames = actor.AlternateNames;
    character->Bio = actor.Bio;
    character->FullName = actor.FullName;
    character->Goals = actor.Goals;
    g_Project->AddChar(character);
    return character->ID();
  }

  const clsQN2Project& from_;
  QHash<QString, qint32> ids_;
};

/// Text and plan; the viewpoint stays as it is.
void take(const clsQN2Scene& from, clsScene& into) {
  into.Conflict = from.Conflict;
  into.Day = from.Day;
  into.DescText = from.DescText;
  for (size_t i = 0; i < from.Field.size(); ++i) {
    into.setField(static_cast<int>(i) + 1, from.Field[i]);
  }
  into.Goal = from.Goal;
  into.Hour = from.Hour;
  into.LastsDays = from.LastsDays;
  into.LastsHours = from.LastsHours;
  into.LastsMinutes = from.LastsMinutes;
  into.Minute = from.Minute;
  into.Outcome = from.Outcome;
  into.Status = from.Status;
  into.setTextRTF(from.TextRTF());
  into.Title = from.Title;
}

QStringList takeSettings(const clsQN2Project& from) {
  QStringList refused;
  clsProject& into = *g_Project;
  into.Title = from.Title;
  into.AuthorName = from.Author;
  into.WordCountStart = from.WordCountStart;
  into.WordTarget = from.WordTarget;
  into.WordTargetEndDate = from.WordTargetEndDate;
  into.WordTargetStartDate = from.WordTargetStartDate;
  for (int i = 0; i < static_cast<int>(from.DeadlineDate.size()); ++i) {
    into.setDeadlineDate(i + 1, from.DeadlineDate[static_cast<size_t>(i)]);
    into.setDeadlineStartDate(i + 1, from.DeadlineStartDate[static_cast<size_t>(i)]);
  }
  for (int i = 0; i < static_cast<int>(from.FieldTitle.size()); ++i) {
    const QString& name = from.FieldTitle[static_cast<size_t>(i)];
    const QString cause = Guard("ImportQN2", "frmMain").causeOf([&] { into.setFieldTitle(i + 1, name); });
    if (!cause.isEmpty()) {
      refused.append(translated(cause));
    }
  }
  return refused;
}

/// No field of a chapter has a place for what stands beside its scenes, and no word of it shall be lost.
QString besideScenes(const clsQN2Text& text) {
  const QString header = text.Header.trimmed();
  const QString front = text.Front.trimmed();
  return header.isEmpty() || front.isEmpty() ? header + front : header + u"\r\n\r\n"_s + front;
}

/// The character of the book with this title; a new one, which is noted, where there is none.
qint32 characterNamed(const QString& title, QList<qint32>& added) {
  for (const auto& character : g_Project->Chars) {
    if (TextTools().StringsEqual(character->Title(), title)) {
      return character->ID();
    }
  }
  const auto character = std::make_shared<clsCharacter>();
  character->setTitle(title);
  g_Project->AddChar(character);
  added.append(character->ID());
  return character->ID();
}

void addScene(const clsQN2Scene& from, clsChapter& chapter, Cast& cast) {
  const auto scene = std::make_shared<clsScene>();
  take(from, *scene);
  chapter.Addscene(scene);
  if (const qint32 viewpoint = cast.idOf(from.Actor); viewpoint != 0) {
    scene->SetViewpointByID(viewpoint);
  }
  Logging().LogEvent(u"Added "_s + scene->Title + u" of "_s + QString::number(scene->Wordcount()) + u" words"_s);
}

}  // namespace

namespace ImportQN2 {

QStringList fill(const clsQN2Project& from, LongWork& work) {
  QStringList findings = takeSettings(from);
  QStringList described;
  Cast cast(from);
  qint32 number = 0;
  for (const clsQN2Project::Chapter& old : from.Chapters) {
    work.setCaption(shownText(u"Importing Chapter %1"_s), ++number);
    const auto chapter = std::make_shared<clsChapter>();
    chapter->Title = old.Title;
    chapter->DescText = besideScenes(old.Text);
    if (!chapter->DescText.isEmpty()) {
      described.append(old.Title);
    }
    g_Project->AddChapter(chapter);
    for (const clsQN2Scene& scene : old.Text.Scenes) {
      addScene(scene, *chapter, cast);
    }
  }
  cast.addUnused();
  if (!described.isEmpty()) {
    findings.append(
        translated(u"What stood before the first scene of these chapters is in their descriptions now: "_s) +
        firstOf(described).join(u"; "_s));
  }
  return findings;
}

QString splitScene(clsScene& source) {
  clsQN2Text text;
  text.SetText(source.ConvertedToBodyText());
  std::vector<std::shared_ptr<clsScene>> scenes;
  QList<qint32> added;
  for (const clsQN2Scene& marked : text.Scenes) {
    scenes.push_back(std::make_shared<clsScene>());
    take(marked, *scenes.back());
    if (!marked.Actor.isEmpty()) {
      scenes.back()->AddCharByID(characterNamed(marked.Actor, added));
    }
  }
  QString failure = SceneSplit::addBehind(source, scenes);
  if (!failure.isEmpty()) {
    for (const qint32 id : added) {
      g_Project->RemoveCharByID(id);
    }
  }
  return failure;
}

}  // namespace ImportQN2
