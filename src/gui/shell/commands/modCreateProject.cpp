#include "gui/shell/commands/modCreateProject.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"

bool CreateEmptyProject() {
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  return g_Project->SaveQN4(true);
}
