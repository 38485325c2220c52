#include "gui/editor/ViewpointBox.h"

#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"
#include "core/model/clsScene.h"
#include "gui/editor/Cast.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/KeysPressed.h"
#include "gui/toolkit/Controls.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ViewpointBox::ViewpointBox(QWidget* parent)
    : QWidget(parent),
      cmbViewpoint(new EditorCombo(u"cmbViewpoint"_s, u"Viewpoint"_s, this)),
      cmdAddChar(makeButton(u"cmdAddChar"_s, u"Cast..."_s, this)),
      cmdEditChar(makeButton(u"cmdEditChar"_s, u"Ed&it..."_s, this)) {
  cmdAddChar->setAccessibleName(u"Add or edit characters"_s);
  cmdEditChar->setAccessibleName(u"Edit the viewpoint character"_s);
  cmdAddChar->setToolTip(cmdAddChar->accessibleName());
  cmdEditChar->setToolTip(cmdEditChar->accessibleName());
  cmbViewpoint->setMinimumContentsLength(13);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* const button : {cmdAddChar, cmdEditChar}) {
    buttons->addWidget(button);
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(makeLabelOf(u"&Viewpoint:"_s, *cmbViewpoint));
  column->addWidget(cmbViewpoint);
  column->addLayout(buttons);
  // There is no list of characters to be shown without its window.
  cmdAddChar->setVisible(entityDialogs().list != nullptr);

  connect(new KeysPressed(*cmbViewpoint), &KeysPressed::pressed, this, &ViewpointBox::changed);
  connect(cmbViewpoint, &EditorCombo::activated, this, [this] {
    chosen_ = true;
    Q_EMIT changed();
    Q_EMIT viewpointShown(viewpointID());
  });
  connect(cmdAddChar, &QPushButton::clicked, this, &ViewpointBox::addCharWanted);
  connect(cmdEditChar, &QPushButton::clicked, this, [this] { Q_EMIT editCharWanted(viewpointID()); });
}

qint32 ViewpointBox::viewpointID() const {
  return cmbViewpoint->selectedID();
}

void ViewpointBox::fill(const clsScene& scene) {
  cmbViewpoint->clear();
  for (const qint32 id : scene.CharIDs()) {
    if (isInCast(id)) {
      cmbViewpoint->addID(g_Project->CharByID(id)->Title(), id);
    }
  }
}

void ViewpointBox::DataToForm(const clsScene& scene) {
  chosen_ = false;
  refresh(scene);
}

void ViewpointBox::refresh(const clsScene& scene) {
  const qint32 before = viewpointID();
  fill(scene);
  cmbViewpoint->setPlaceholderText(translated(u"(nobody)"_s));
  chosen_ = chosen_ && cmbViewpoint->findData(before) >= 0;
  cmbViewpoint->selectID(chosen_ ? before : scene.ViewPointID());
  Q_EMIT viewpointShown(viewpointID());
}

void ViewpointBox::FormToData(clsScene& scene) {
  const qint32 id = viewpointID();
  chosen_ = false;
  // Who stands in the box may have been deleted since it was filled.
  if (!isInCast(id) || id == scene.ViewPointID() || !scene.InScenes()) {
    return;
  }
  if (scene.CharIDs().contains(id)) {
    scene.ChangeViewpointByID(id);
  } else {
    scene.SetViewpointByID(id);
  }
}
