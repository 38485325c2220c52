#include "gui/editor/EditorTabs.h"

#include "gui/editor/DescriptionTab.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

using MakeTab = EditorTab* (*)(QWidget* parent);

template <class Tab>
EditorTab* make(QWidget* parent) {
  return new Tab(parent);
}

/// A tab of the strip is a line here.
constexpr MakeTab kTabs[] = {
    make<DescriptionTab>,
};

}  // namespace

std::vector<EditorTab*> addEditorTabs(QTabWidget& strip) {
  std::vector<EditorTab*> tabs;
  for (const MakeTab makeTab : kTabs) {
    EditorTab* const tab = makeTab(&strip);
    const int index = strip.addTab(tab, tab->caption());
    strip.setTabToolTip(index, tab->stripTip());
    tab->setObjectName(u"Frame(%1)"_s.arg(index));
    tabs.push_back(tab);
  }
  return tabs;
}
