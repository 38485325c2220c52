#include "gui/editor/EditorTab.h"

EditorTab::EditorTab(QString caption, QString stripTip, QWidget* parent)
    : QWidget(parent), caption_(std::move(caption)), stripTip_(std::move(stripTip)) {
  setAccessibleName(caption_);
}
