#pragma once

#include <vector>

class EditorTab;
class QTabWidget;

/// Adds all tabs to the strip in their order, which is the one in which they are filled and read.
std::vector<EditorTab*> addEditorTabs(QTabWidget& strip);
