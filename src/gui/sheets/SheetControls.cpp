#include "gui/sheets/SheetControls.h"

#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/Mnemonics.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// "Short Name" of "&Short Name:".
QString spokenNameOf(const QString& caption) {
  QString name = withoutMnemonic(caption);
  if (name.endsWith(u':')) {
    name.chop(1);
  }
  return name;
}

MemoEdit* makeMemo(const QString& name, const QString& caption) {
  auto* memo = new MemoEdit;
  giveName(*memo, name, spokenNameOf(caption));
  return memo;
}

/// Whatever the window's palette is.
void letWindowThrough(QWidget& field) {
  QPalette ground;
  ground.setColor(QPalette::Base, Qt::transparent);
  field.setPalette(ground);
}

}  // namespace

QFormLayout* makeFieldForm(QWidget& page) {
  auto* form = new QFormLayout(&page);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  return form;
}

QLineEdit* addLine(QFormLayout& form, const QString& name, const QString& caption) {
  QLineEdit* line = makeLineEdit(name, spokenNameOf(caption));
  line->setMaxLength(std::numeric_limits<int>::max());
  form.addRow(makeLabelOf(caption, *line), line);
  return line;
}

MemoEdit* addMemo(QFormLayout& form, const QString& name, const QString& caption) {
  MemoEdit* memo = makeMemo(name, caption);
  form.addRow(makeLabelOf(caption, *memo), memo);
  return memo;
}

MemoEdit* addPageMemo(QWidget& page, const QString& name, const QString& caption) {
  MemoEdit* memo = makeMemo(name, caption);
  auto* column = new QVBoxLayout(&page);
  column->addWidget(makeLabelOf(caption, *memo));
  column->addWidget(memo, 1);
  return memo;
}

QTabWidget* makeStrip(const QString& spokenName, QWidget* parent) {
  auto* strip = new QTabWidget(parent);
  giveName(*strip, u"TabStrip1"_s, spokenName);
  strip->setUsesScrollButtons(false);
  return strip;
}

QWidget* addFrame(QTabWidget& strip, const QString& caption) {
  auto* frame = new QWidget(&strip);
  giveName(*frame, u"FrameData(%1)"_s.arg(strip.count()), withoutMnemonic(caption));
  strip.addTab(frame, caption);
  return frame;
}

void showReadOnly(QLineEdit& field) {
  field.setReadOnly(true);
  field.setFrame(false);
  letWindowThrough(field);
}

void showReadOnly(QFrame& field) {
  field.setFrameShape(QFrame::NoFrame);
  letWindowThrough(field);
}
