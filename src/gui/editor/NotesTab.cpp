#include "gui/editor/NotesTab.h"

#include "core/model/clsScene.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NotesTab::NotesTab(QWidget* parent)
    : EditorTab(u"Scene Notes"_s, u"Notes about this scene."_s, parent), txtNotes(new MemoEdit(this)) {
  giveName(*txtNotes, u"txtNotes"_s, u"Scene notes"_s);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtNotes);
  connect(txtNotes, &MemoEdit::textChanged, this, &NotesTab::changed);
}

void NotesTab::DataToForm(clsScene& scene) {
  txtNotes->setText(scene.Notes);
}

void NotesTab::FormToData(clsScene& scene) const {
  scene.Notes = txtNotes->Text();
}

const char* NotesTab::sign() const {
  return txtNotes->Text().isEmpty() ? nullptr : "notes";
}
