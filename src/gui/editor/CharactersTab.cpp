#include "gui/editor/CharactersTab.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/toolkit/Controls.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

#include <QHBoxLayout>
#include <QHeaderView>

#include <utility>

using namespace Qt::StringLiterals;

CharactersTab::CharactersTab(QWidget* parent)
    : EditorTab(u"Characters"_s, u"Add or remove characters from this scene"_s, parent),
      ListChar{makeList(0, u"In this scene"_s, shownText(u"Nobody is in this scene"_s)),
               makeList(1, u"All characters"_s, shownText(u"The book has no characters yet"_s))} {
  auto* row = new QHBoxLayout(this);
  row->addWidget(ListChar[0]);
  row->addWidget(ListChar[1]);
  join(*ListChar[0], true);
  join(*ListChar[1], false);
}

// What is dropped on the list of the scene comes in, what is dropped on the other goes out; so do the keys of the list
// on the other side.
void CharactersTab::join(ListView& list, bool inScene) {
  const QString how =
      inScene ? shownText(u"Drag characters here to add them to the scene. Delete takes the selected ones out."_s)
              : shownText(u"Drag characters to the scene's list, or press Insert, to add them to the scene."_s);
  list.setToolTip(how);
  list.setAccessibleDescription(how);
  list.setDrags({[this] {
                   Dragging = true;
                   return Qt::CopyAction;
                 },
                 [this](int) { return Dragging && !g_Project->IsBusy() ? Qt::CopyAction : Qt::IgnoreAction; },
                 [this, inScene](const QList<qint32>& ids, qint32) {
                   if (std::exchange(Dragging, false)) {
                     Q_EMIT castWanted(ids, inScene);
                   }
                 }});
  connect(&list, &ListView::buttonUp, this, [this] { Dragging = false; });
  connect(&list, &ListView::keyUp, this, [this, &list, inScene](int key) {
    const QList<qint32> ids = list.SelectedTags();
    if (key == (inScene ? Qt::Key_Delete : Qt::Key_Insert) && !ids.isEmpty()) {
      Q_EMIT castWanted(ids, !inScene);
    }
  });
}

ListView* CharactersTab::makeList(int index, const QString& title, const QString& whenEmpty) {
  auto* const list = new ListView({title, u"Full name"_s}, this);
  giveName(*list, u"ListChar(%1)"_s.arg(index), title);
  list->setEmptyText(whenEmpty);
  list->header()->resizeSection(0, list->widthFor(0, u"Somebody's name"));
  list->setFillRule({1, {}, {}, {}});
  list->fillRoom();
  // As low as the other pages: the text has the room.
  list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  const auto open = [this, list] {
    if (list->SelectedTag() != 0) {
      Q_EMIT characterWanted(list->SelectedTag());
    }
  };
  connect(list, &ListView::rowOpened, this, open);
  connect(list, &ListView::enterPressed, this, open);
  return list;
}

void CharactersTab::refresh(clsScene& scene) {
  modFillList::FillAllCharList(*ListChar[1], true, false);
  modFillList::FillCharInScene(*ListChar[0], scene.ID(), true, false);
}
