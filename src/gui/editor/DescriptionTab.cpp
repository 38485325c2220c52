#include "gui/editor/DescriptionTab.h"

#include "core/model/clsScene.h"
#include "gui/editor/KeysPressed.h"
#include "gui/editor/SceneOverview.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QFormLayout>
#include <QLineEdit>

#include <limits>

using namespace Qt::StringLiterals;

DescriptionTab::DescriptionTab(QWidget* parent)
    : EditorTab(u"Description"_s, u"Edit the scene title and description"_s, parent),
      txtTitle(makeLineEdit(u"txtTitle"_s, u"Scene title"_s, this)),
      txtDesc(new MemoEdit(this)) {
  txtTitle->setMaxLength(std::numeric_limits<int>::max());
  giveName(*txtDesc, u"txtDesc"_s, u"Scene description"_s);
  auto* layout = new QFormLayout(this);
  layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  layout->addRow(makeLabelOf(u"Title:"_s, *txtTitle), txtTitle);
  layout->addRow(makeLabelOf(u"Description:"_s, *txtDesc), txtDesc);
  connect(new KeysPressed(*txtTitle), &KeysPressed::pressed, this, &DescriptionTab::changed);
  connect(txtTitle, &QLineEdit::textEdited, this, &DescriptionTab::changed);
  connect(txtTitle, &QLineEdit::textChanged, this, &DescriptionTab::titleChanged);
  connect(txtTitle, &QLineEdit::textChanged, this, &DescriptionTab::shownChanged);
  connect(txtDesc, &MemoEdit::textChanged, this, &DescriptionTab::changed);
  connect(txtDesc, &MemoEdit::textChanged, this, &DescriptionTab::shownChanged);
}

QString DescriptionTab::Title() const {
  return txtTitle->text();
}

void DescriptionTab::takeTitle(const QString& title) {
  txtTitle->selectAll();
  txtTitle->insert(title);
  Q_EMIT changed();
}

void DescriptionTab::takeDescription(const QString& text) {
  txtDesc->selectAll();
  txtDesc->insertPlainText(text);
}

void DescriptionTab::DataToForm(clsScene& scene) {
  txtTitle->setText(scene.Title);
  txtTitle->setCursorPosition(0);
  txtDesc->setText(scene.DescText);
}

void DescriptionTab::FormToData(clsScene& scene) const {
  scene.Title = txtTitle->text();
  scene.DescText = txtDesc->Text();
}

void DescriptionTab::describe(SceneOverview& shown) const {
  shown.Title = txtTitle->text();
  shown.DescText = txtDesc->Text();
}
