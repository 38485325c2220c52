#include "gui/editor/DescriptionTab.h"

#include "core/model/clsScene.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

DescriptionTab::DescriptionTab(QWidget* parent)
    : EditorTab(u"Description"_s, u"Edit the scene title and description"_s, parent),
      txtTitle(makeLineEdit(u"txtTitle"_s, u"Scene title"_s, this)),
      txtDesc(new MemoEdit(this)) {
  txtTitle->installEventFilter(this);
  giveName(*txtDesc, u"txtDesc"_s, u"Scene description"_s);
  auto* layout = new QFormLayout(this);
  layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  layout->addRow(makeLabelOf(u"Title:"_s, *txtTitle), txtTitle);
  layout->addRow(makeLabelOf(u"Description:"_s, *txtDesc), txtDesc);
  connect(txtTitle, &QLineEdit::textEdited, this, &DescriptionTab::changed);
  connect(txtDesc, &MemoEdit::textChanged, this, &DescriptionTab::changed);
}

void DescriptionTab::DataToForm(const clsScene& scene) {
  txtTitle->setText(scene.Title);
  txtTitle->setCursorPosition(0);
  txtDesc->setText(scene.DescText);
}

void DescriptionTab::FormToData(clsScene& scene) const {
  scene.Title = txtTitle->text();
  scene.DescText = txtDesc->Text();
}

bool DescriptionTab::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtTitle && event->type() == QEvent::KeyPress) {
    // Any key counts, arrows too; those that move on to the next control are not meant for the title.
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab) {
      Q_EMIT changed();
    }
  }
  return EditorTab::eventFilter(watched, event);
}
