#include "shell/modCreateProject.h"

#include "model/Globals.h"
#include "model/clsProject.h"

bool CreateEmptyProject() {
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  return g_Project->SaveQN4(true);
}
