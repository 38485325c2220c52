#include "core/model/Globals.h"

#include "core/model/EntityDialogs.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

clsHashTable g_SceneChanges;
clsHashTable g_CharChanges;
clsHashTable g_LocationChanges;
clsHashTable g_ItemChanges;
// Behind the tables: entities that go with the project still reset their records.
std::unique_ptr<clsProject> g_Project = std::make_unique<clsProject>();

QStringList g_StatusNames = u"Dummy,Outline,Draft,1st Edit,2nd Edit,Done"_s.split(u',');
QStringList g_RatingNames = u"Dummy,Relevance,Tension,Humour,Quality"_s.split(u',');

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
