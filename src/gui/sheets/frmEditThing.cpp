#include "gui/sheets/frmEditThing.h"

#include "core/infra/cSharedLang.h"
#include "gui/sheets/SheetControls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QFormLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

struct Form {
  const char* name;
  QString caption;
};

Form formOf(EntityKind kind) {
  return kind == EntityKind::Location ? Form{"frmEditLocation", u"Location"_s} : Form{"frmEditItem", u"Item"_s};
}

}  // namespace

frmEditThing::frmEditThing(const SubjectOf<ThingDetails>& subject, QWidget* parent)
    : SheetOf(formOf(subject.kind).name, formOf(subject.kind).caption, subject, parent) {
  auto* page = new QWidget(this);
  QFormLayout& form = *makeFieldForm(*page);
  form.setContentsMargins(0, 0, 0, 0);
  txtTitle = addLine(form, u"txtTitle"_s, u"&Name:"_s);
  txtDesc = addMemo(form, u"txtDesc"_s, u"&Description:"_s);
  txtTags = addLine(form, u"txtTags"_s, u"&Tags:"_s);
  setFields(page, {80, 20});
  setNameField(*txtTitle, shownText(u"You must specify a name"_s));
}

void frmEditThing::DataToForm(const ThingDetails& details) {
  txtTitle->setText(details.Title);
  txtDesc->setText(details.DescText);
  txtTags->setText(details.Tags);
}

void frmEditThing::writeTo(ThingDetails& details) const {
  details.Title = txtTitle->text();
  details.DescText = txtDesc->Text();
  details.Tags = txtTags->text();
}
