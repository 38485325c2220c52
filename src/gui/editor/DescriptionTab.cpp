#include "gui/editor/DescriptionTab.h"

#include "core/model/clsScene.h"
#include "gui/toolkit/MemoEdit.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

DescriptionTab::DescriptionTab(QWidget* parent)
    : QWidget(parent), txtTitle_(new QLineEdit(this)), txtDesc_(new MemoEdit(this)) {
  txtTitle_->setObjectName(u"txtTitle"_s);
  txtTitle_->setAccessibleName(u"Scene title"_s);
  txtTitle_->installEventFilter(this);
  txtDesc_->setObjectName(u"txtDesc"_s);
  txtDesc_->setAccessibleName(u"Scene description"_s);
  auto* layout = new QFormLayout(this);
  layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  layout->addRow(u"Title:"_s, txtTitle_);
  layout->addRow(u"Description:"_s, txtDesc_);
  connect(txtTitle_, &QLineEdit::textEdited, this, &DescriptionTab::changed);
  connect(txtDesc_, &MemoEdit::textChanged, this, &DescriptionTab::changed);
}

void DescriptionTab::DataToForm(const clsScene& scene) {
  txtTitle_->setText(scene.Title);
  txtTitle_->setCursorPosition(0);
  txtDesc_->setText(scene.DescText);
}

void DescriptionTab::FormToData(clsScene& scene) const {
  scene.Title = txtTitle_->text();
  scene.DescText = txtDesc_->Text();
}

bool DescriptionTab::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txtTitle_ && event->type() == QEvent::KeyPress) {
    // Any key counts, arrows too; those that move on to the next control are not meant for the title.
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab) {
      Q_EMIT changed();
    }
  }
  return QWidget::eventFilter(watched, event);
}
