#include "gui/editor/ViewpointTab.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"

#include <QEvent>
#include <QGridLayout>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

QString describe(const clsCharacter& character) {
  QString text = character.DescText;
  if (!character.Goals.isEmpty()) {
    text += u"\r\n\r\n"_s + translated(u"GOALS: %1"_s).arg(character.Goals);
  }
  if (!character.Bio.isEmpty()) {
    text += u"\r\n\r\n"_s + translated(u"BIO: %1"_s).arg(character.Bio);
  }
  return text.isEmpty() ? translated(u"No description"_s) : text;
}

}  // namespace

ViewpointTab::ViewpointTab(QWidget* parent)
    : EditorTab(u"Viewpoint Details"_s, u"Shows the description, bio, goals and notes for the viewpoint character"_s,
                parent),
      lblFullName(makeElidedLabel(u"lblFullName"_s, this)),
      lblAltNames(makeElidedLabel(u"lblAltNames"_s, this)),
      txtCharDesc(makeReadOnlyText(u"txtCharDesc"_s, u"Description of the viewpoint character"_s, this)),
      txtCharNotes(makeReadOnlyText(u"txtCharNotes"_s, u"Notes on the viewpoint character"_s, this)) {
  auto* grid = new QGridLayout(this);
  grid->addWidget(lblFullName, 0, 0);
  grid->addWidget(lblAltNames, 0, 1);
  grid->addWidget(txtCharDesc, 1, 0);
  grid->addWidget(txtCharNotes, 1, 1);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(0, 3);
  grid->setColumnStretch(1, 2);
  for (QPlainTextEdit* const text : {txtCharDesc, txtCharNotes}) {
    // As low as the other pages are.
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * 3);
    text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  }
  // The characters that these open are fixed ones, whoever is shown.
  opens_ = {{lblAltNames, 1}, {lblFullName, 1}, {txtCharDesc->viewport(), 2}, {txtCharNotes->viewport(), 4}};
  for (QWidget* const clicked :
       std::initializer_list<QWidget*>{lblAltNames, lblFullName, txtCharDesc->viewport(), txtCharNotes->viewport()}) {
    clicked->installEventFilter(this);
  }
  DisplayCharacter(0);
}

void ViewpointTab::DisplayCharacter(qint32 id) {
  if (id == 0) {
    lblFullName->setText(u"No viewpoint character"_s);
    lblAltNames->clear();
    txtCharDesc->clear();
    txtCharNotes->clear();
    return;
  }
  const auto shown = g_Project->CharByID(id);
  lblFullName->setText(translated(u"Full name: %1"_s).arg(shown->FullName));
  lblAltNames->setText(translated(u"AKA: %1"_s).arg(shown->AlternateNames));
  txtCharDesc->setPlainText(::describe(*shown));
  txtCharNotes->setPlainText(shown->Notes.isEmpty() ? translated(u"No notes."_s)
                                                    : translated(u"Notes: %1"_s).arg(shown->Notes));
}

bool ViewpointTab::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonDblClick && opens_.contains(watched)) {
    Q_EMIT characterWanted(opens_.value(watched));
    return true;
  }
  return EditorTab::eventFilter(watched, event);
}
