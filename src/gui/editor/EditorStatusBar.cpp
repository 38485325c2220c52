#include "gui/editor/EditorStatusBar.h"

#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/toolkit/WindowTexts.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitleLetters = 30;

}  // namespace

EditorStatusBar::EditorStatusBar(QWidget* parent) : QStatusBar(parent), panels_{} {
  setObjectName(u"StatusBar1"_s);
  for (int panel = 1; panel <= static_cast<int>(panels_.size()); ++panel) {
    // A chapter's title or a hint may be of any length and must not widen the window.
    const bool mayBeLong = panel == chapterTitle || panel == hint;
    QLabel* const label = mayBeLong ? new ElidedLabel(this) : makeLabel({}, {}, this);
    giveName(*label, u"StatusBar1(%1)"_s.arg(panel));
    label->setContentsMargins(6, 0, 6, 0);
    addWidget(label, panel == hint ? 1 : 0);
    panels_[static_cast<size_t>(panel - 1)] = label;
  }
  // The title takes what it needs and no more than a part, the hint has the rest.
  QLabel& title = *panels_[chapterTitle - 1];
  keepWords(title);
  title.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  title.setMaximumWidth(fontMetrics().averageCharWidth() * kTitleLetters);
  title.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void EditorStatusBar::setPanel(int panel, const QString& text, const QString& toolTip) {
  QLabel& label = *panels_[static_cast<size_t>(panel - 1)];
  label.setText(text);
  label.setToolTip(plainToolTip(toolTip));
}
