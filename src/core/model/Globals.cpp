#include "core/model/Globals.h"

#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QStringList usualStatusNames() {
  return {u"Dummy"_s,
          shownText(u"Outline"_s),
          shownText(u"Draft"_s),
          shownText(u"1st Edit"_s),
          shownText(u"2nd Edit"_s),
          shownText(u"Done"_s)};
}

QStringList usualRatingNames() {
  return {u"Dummy"_s, shownText(u"Relevance"_s), shownText(u"Tension"_s), shownText(u"Humour"_s),
          shownText(u"Quality"_s)};
}

QString shownRating(int number, const QString& title) {
  if (title.isEmpty()) {
    return translated(u"Rating %1"_s).arg(number);
  }
  return usualRatingNames().contains(title) ? translated(title) : title;
}

QString keptRating(const QString& typed) {
  const QStringList usual = usualRatingNames().sliced(1);
  const auto same =
      std::find_if(usual.begin(), usual.end(), [&](const QString& name) { return translated(name) == typed; });
  return same == usual.end() ? typed : *same;
}

clsHashTable g_SceneChanges;
clsHashTable g_CharChanges;
clsHashTable g_LocationChanges;
clsHashTable g_ItemChanges;
// Behind the tables: entities that go with the project still reset their records.
std::unique_ptr<clsProject> g_Project = std::make_unique<clsProject>();

QStringList g_StatusNames = usualStatusNames();
QStringList g_RatingNames = usualRatingNames();

QString g_SettingsFile;
bool g_DebugMode = false;
bool g_DblSpaced = false;
bool g_12Spaced = false;
qint16 g_FontSize = 10;
QString g_FontName = u"Times New Roman"_s;

void initChangeTables() {
  for (clsHashTable* table : {&g_SceneChanges, &g_CharChanges, &g_LocationChanges, &g_ItemChanges}) {
    table->ClearArrays();
    table->Init();
  }
}

SceneEditorFactory& sceneEditorFactory() {
  static SceneEditorFactory factory;
  return factory;
}

void bringDialogForward(EntityKind kind, qint32 id) {
  if (entityDialogs().bringForward) {
    entityDialogs().bringForward(kind, id);
  }
}

EntityDialogs& entityDialogs() {
  static EntityDialogs dialogs;
  return dialogs;
}
