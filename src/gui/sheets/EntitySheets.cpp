#include "gui/sheets/EntitySheets.h"

#include "gui/sheets/frmEditChapter.h"
#include "gui/sheets/frmEditCharacter.h"
#include "gui/sheets/frmEditThing.h"
#include "gui/sheets/frmList.h"
#include "gui/toolkit/OverActiveWindow.h"

namespace {

/// Shows the sheet on these values, on a tab where it has tabs, and waits for it.
template <class Form, class Details, class... Tab>
std::optional<Details> edited(const SubjectOf<Details>& subject, const Details& given, Tab... tab) {
  const OverActiveWindow<Form> form(subject);
  form->Edit(given, tab...);
  return form.accepted() ? std::optional(form->FormToData()) : std::nullopt;
}

QList<Sheet*> openSheets() {
  QList<Sheet*> open;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    auto* const sheet = qobject_cast<Sheet*>(window);
    if (sheet != nullptr && sheet->isVisible()) {
      open.append(sheet);
    }
  }
  return open;
}

void bringForward(EntityKind kind, qint32 id) {
  for (Sheet* const sheet : openSheets()) {
    if (sheet->isOn(kind, id)) {
      sheet->bringForward();
    }
  }
}

void manage(int type, qint32 id) {
  const OverActiveWindow<frmList> form;
  form->SetupFor(type, true);
  form->selectID(id);
  form.accepted();
}

}  // namespace

void registerSheets() {
  EntityDialogs& dialogs = entityDialogs();
  dialogs.chapter = &edited<frmEditChapter, ChapterDetails>;
  dialogs.character = &edited<frmEditCharacter, CharacterDetails, qint32>;
  dialogs.thing = &edited<frmEditThing, ThingDetails>;
  dialogs.bringForward = &bringForward;
  dialogs.list = &manage;
}

bool keepTypedOnSheets() {
  bool kept = false;
  for (Sheet* const sheet : openSheets()) {
    kept = sheet->keepTyped() || kept;
  }
  return kept;
}
