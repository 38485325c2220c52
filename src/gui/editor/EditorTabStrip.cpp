#include "gui/editor/EditorTabStrip.h"

#include "core/infra/cSharedLang.h"
#include "gui/editor/CharactersTab.h"
#include "gui/editor/DescriptionTab.h"
#include "gui/editor/GoalsTab.h"
#include "gui/editor/NotesTab.h"
#include "gui/editor/OverviewTab.h"
#include "gui/editor/SceneOverview.h"
#include "gui/editor/StatusTab.h"
#include "gui/editor/TimeTab.h"
#include "gui/editor/ViewpointTab.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/Icons.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

EditorTabStrip::EditorTabStrip(QWidget* parent) : QTabWidget(parent) {
  giveName(*this, u"TabStrip1"_s, u"Planning data of the scene"_s);
  description_ = add<DescriptionTab>(u'D');
  add<StatusTab>(u'u');
  add<GoalsTab>(u'G');
  add<TimeTab>(u'm');
  add<NotesTab>(u'N');
  connect(add<CharactersTab>(u'a'), &CharactersTab::castWanted, this, &EditorTabStrip::castWanted);
  viewpoint_ = add<ViewpointTab>(u'l');
  overview_ = add<OverviewTab>(u'w');
  // Arrow keys on the bar reach all tabs, so the buttons that scroll it needn't be stopped at.
  for (QToolButton* const button : tabBar()->findChildren<QToolButton*>()) {
    button->setFocusPolicy(Qt::NoFocus);
  }
  tabBar()->installEventFilter(this);
  connect(description_, &DescriptionTab::titleChanged, this, &EditorTabStrip::titleChanged);
  connect(this, &QTabWidget::currentChanged, this, &EditorTabStrip::mirror);
}

/// The keyboard goes where its key leads, and the next Tab into the first field.
bool EditorTabStrip::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    tabBar()->setFocus(Qt::ShortcutFocusReason);
  }
  return QTabWidget::eventFilter(watched, event);
}

template <class Tab>
Tab* EditorTabStrip::add(QChar key) {
  auto* const tab = new Tab(this);
  QString marked = tab->caption();
  const int index = addTab(tab, marked.insert(marked.indexOf(key), u'&'));
  setTabToolTip(index, tab->stripTip());
  tab->setObjectName(u"Frame(%1)"_s.arg(index));
  connect(tab, &EditorTab::changed, this, &EditorTabStrip::changed);
  connect(tab, &EditorTab::shownChanged, this, &EditorTabStrip::mirror);
  connect(tab, &EditorTab::characterWanted, this, &EditorTabStrip::characterWanted);
  tabs_.push_back(tab);
  return tab;
}

void EditorTabStrip::DataToForm(clsScene& scene) {
  for (EditorTab* const tab : tabs_) {
    tab->DataToForm(scene);
  }
}

void EditorTabStrip::FormToData(clsScene& scene) const {
  for (const EditorTab* const tab : tabs_) {
    tab->FormToData(scene);
  }
}

void EditorTabStrip::refresh(clsScene& scene) {
  for (EditorTab* const tab : tabs_) {
    tab->refresh(scene);
  }
}

void EditorTabStrip::TabIcons() {
  for (const EditorTab* const tab : tabs_) {
    const int index = indexOf(tab);
    const char* const sign = tab->sign();
    const QString caption = translated(tab->caption());
    setTabIcon(index, sign == nullptr ? QIcon() : icon(sign));
    tabBar()->setAccessibleTabName(index, sign == nullptr ? caption : translated(u"%1, filled in"_s).arg(caption));
  }
}

void EditorTabStrip::DisplayCharacter(qint32 id) {
  viewpoint_->DisplayCharacter(id);
}

QString EditorTabStrip::Title() const {
  return description_->Title();
}

void EditorTabStrip::lock() {
  for (auto* const line : findChildren<QLineEdit*>()) {
    line->setReadOnly(true);
  }
  for (auto* const memo : findChildren<QPlainTextEdit*>()) {
    memo->setReadOnly(true);
  }
}

void EditorTabStrip::takeTitle(const QString& title) {
  description_->takeTitle(title);
}

void EditorTabStrip::takeDescription(const QString& text) {
  description_->takeDescription(text);
}

/// Costs nothing while the mirror isn't seen.
void EditorTabStrip::mirror() {
  if (overview_ == nullptr || currentWidget() != overview_) {
    return;
  }
  SceneOverview shown;
  for (const EditorTab* const tab : tabs_) {
    tab->describe(shown);
  }
  overview_->mirror(shown);
}
