#include "gui/views/frmPickFont.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/views/FontLists.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kListLines = 12;
constexpr int kFontLetters = 34;
constexpr int kSizeLetters = 9;
constexpr int kSampleLines = 5;

QListWidget* makeList(const QString& name, const QString& spokenName, int letters, QWidget* parent) {
  auto* const list = new QListWidget(parent);
  giveName(*list, name, spokenName);
  list->setMinimumSize(list->fontMetrics().averageCharWidth() * letters,
                       list->fontMetrics().lineSpacing() * kListLines);
  return list;
}

void select(QListWidget& list, int row) {
  list.setCurrentRow(row);
  list.scrollToItem(list.currentItem(), QAbstractItemView::PositionAtCenter);
}

}  // namespace

frmPickFont::frmPickFont(QWidget* parent)
    : QDialog(parent),
      lstFonts(makeList(u"lstFonts"_s, u"Font"_s, kFontLetters, this)),
      lstSizes(makeList(u"lstSizes"_s, u"Size"_s, kSizeLetters, this)),
      lblSample(makeLabel(u"lblSample"_s, u"It was a dark and stormy night; the rain fell in torrents."_s, this)) {
  setObjectName(u"frmPickFont"_s);
  setWindowTitle(u"Default Font"_s);
  lstSizes->setMaximumWidth(lstSizes->minimumWidth());
  buildLayout();
  fillLists(DefaultFont::fromSettings());
  for (const QListWidget* const list : {lstFonts, lstSizes}) {
    connect(list, &QListWidget::currentRowChanged, this, &frmPickFont::showSample);
    connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  }
  showSample();
}

void frmPickFont::buildLayout() {
  lblSample->setWordWrap(true);
  lblSample->setAlignment(Qt::AlignCenter);
  lblSample->setMargin(fontMetrics().averageCharWidth());
  lblSample->setMinimumWidth(1);
  lblSample->setFixedHeight(fontMetrics().lineSpacing() * kSampleLines);
  lblSample->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  lblSample->setBackgroundRole(QPalette::Base);
  lblSample->setForegroundRole(QPalette::Text);
  lblSample->setAutoFillBackground(true);
  auto* const buttons = new QDialogButtonBox(this);
  QPushButton* const ok = makeButton(u"cmdOK"_s, u"&OK"_s);
  ok->setDefault(true);
  buttons->addButton(ok, QDialogButtonBox::AcceptRole);
  buttons->addButton(makeButton(u"cmdCancel"_s, u"&Cancel"_s), QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const grid = new QGridLayout(this);
  grid->addWidget(makeLabelOf(u"&Font:"_s, *lstFonts), 0, 0);
  grid->addWidget(makeLabelOf(u"&Size:"_s, *lstSizes), 0, 1);
  grid->addWidget(lstFonts, 1, 0);
  grid->addWidget(lstSizes, 1, 1);
  grid->addWidget(lblSample, 2, 0, 1, 2);
  grid->addWidget(buttons, 3, 0, 1, 2);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(0, 1);
}

/// The lists hold the current choice in any case: a font that isn't there with what is shown in its place.
void frmPickFont::fillLists(const DefaultFont& current) {
  const QStringList there = fontFamilies();
  const QStringList families = distinctFamilies(there + QStringList(current.name));
  for (const QString& family : families) {
    auto* const item = new QListWidgetItem(family, lstFonts);
    item->setData(Qt::UserRole, family);
    if (!there.contains(family, Qt::CaseInsensitive)) {
      item->setText(translated(u"%1 (replaced by %2)"_s).arg(family, standInFor(family)));
    }
  }
  const auto isCurrent = [&](const QString& family) { return family.compare(current.name, Qt::CaseInsensitive) == 0; };
  select(*lstFonts, static_cast<int>(std::find_if(families.begin(), families.end(), isCurrent) - families.begin()));

  QStringList sizes = fontSizes();
  sizes.removeIf([](const QString& size) { return !isTypedSizeTaken(size.toDouble()); });
  if (!sizes.contains(current.size())) {
    sizes.append(current.size());
  }
  std::sort(sizes.begin(), sizes.end(), [](const QString& a, const QString& b) { return a.toDouble() < b.toDouble(); });
  lstSizes->addItems(sizes);
  select(*lstSizes, static_cast<int>(sizes.indexOf(current.size())));
}

DefaultFont frmPickFont::choice() const {
  return {lstFonts->currentItem()->data(Qt::UserRole).toString(), lstSizes->currentItem()->text().toDouble()};
}

void frmPickFont::showSample() {
  const DefaultFont shown = choice();
  QFont font(shown.name);
  font.setPointSizeF(shown.points);
  lblSample->setFont(font);
}

std::optional<DefaultFont> frmPickFont::pick(const QString& title) {
  const OverActiveWindow<frmPickFont> dialog;
  if (!title.isEmpty()) {
    dialog->setWindowTitle(title);
  }
  if (!dialog.accepted()) {
    return {};
  }
  const DefaultFont chosen = dialog->choice();
  chosen.toSettings();
  return chosen;
}
