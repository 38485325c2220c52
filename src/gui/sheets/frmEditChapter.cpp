#include "gui/sheets/frmEditChapter.h"

#include "core/infra/cSharedLang.h"
#include "gui/sheets/SheetControls.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString summaryOf(const QStringList& descriptions) {
  QStringList scenes;
  for (const QString& description : descriptions) {
    scenes.append(translated(u"Scene: %1"_s).arg(scenes.size() + 1) + u'\n' + description);
  }
  return scenes.join(u"\n\n"_s);
}

}  // namespace

frmEditChapter::frmEditChapter(const SubjectOf<ChapterDetails>& subject, QWidget* parent)
    : SheetOf("frmEditChapter", u"Chapter Details"_s, subject, parent) {
  QTabWidget* strip = makeStrip(u"Chapter Details"_s, this);
  buildDetails(*addFrame(*strip, u"&Details"_s));
  buildSummaries(*addFrame(*strip, u"&Scene Summaries"_s));
  setFields(strip, {90, 26});
  setNameField(*txtTitle, shownText(u"You must specify a title"_s));
}

void frmEditChapter::buildDetails(QWidget& page) {
  QFormLayout& form = *makeFieldForm(page);
  txtTitle = addLine(form, u"txtTitle"_s, u"&Title:"_s);
  txtDesc = addMemo(form, u"txtDesc"_s, u"D&escription:"_s);
  txtWords = addLine(form, u"txtWords"_s, u"&Words:"_s);
  txtWords->setToolTip(u"This item cannot be changed. It's a calculated value."_s);
  showReadOnly(*txtWords);
}

void frmEditChapter::buildSummaries(QWidget& page) {
  txtSceneSummary = makeReadOnlyText(u"txtSceneSummary"_s, u"Scene Summaries"_s);
  txtSceneSummary->setToolTip(u"Automatically generated from scene descriptions."_s);
  txtSceneSummary->setPlaceholderText(u"This chapter has no scenes."_s);
  showReadOnly(*txtSceneSummary);
  auto* column = new QVBoxLayout(&page);
  column->addWidget(makeLabelOf(u"Scene Summaries:"_s, *txtSceneSummary));
  column->addWidget(txtSceneSummary, 1);
}

void frmEditChapter::DataToForm(const ChapterDetails& details) {
  txtTitle->setText(details.Title);
  txtDesc->setText(details.DescText);
  txtWords->setText(QLocale().toString(details.Wordcount));
  txtSceneSummary->setPlainText(summaryOf(details.SceneDescs));
}

void frmEditChapter::writeTo(ChapterDetails& details) const {
  details.Title = txtTitle->text();
  details.DescText = txtDesc->Text();
}
