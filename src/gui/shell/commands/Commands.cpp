#include "gui/shell/commands/Commands.h"

#include "gui/shell/commands/BackupCommands.h"
#include "gui/shell/commands/CastCommands.h"
#include "gui/shell/commands/ChapterCommands.h"
#include "gui/shell/commands/FontCommand.h"
#include "gui/shell/commands/HtmlExportCommand.h"
#include "gui/shell/commands/ImportCommands.h"
#include "gui/shell/commands/NewProjectCommands.h"
#include "gui/shell/commands/OlderProjectCommands.h"
#include "gui/shell/commands/PrintCommands.h"
#include "gui/shell/commands/ProjectCommands.h"
#include "gui/shell/commands/SceneCommands.h"
#include "gui/shell/commands/SearchCommands.h"
#include "gui/shell/commands/SettingsCommands.h"
#include "gui/shell/commands/StatisticsCommands.h"
#include "gui/shell/commands/TextExportCommands.h"
#include "gui/shell/commands/TimelineCommand.h"
#include "gui/shell/commands/ToolCommands.h"
#include "gui/shell/commands/WindowCommands.h"
#include "gui/shell/main/frmMain.h"

void addCommands(frmMain& main) {
  main.addCommands(std::make_unique<ProjectCommands>(main));
  main.addCommands(std::make_unique<NewProjectCommands>(main));
  main.addCommands(std::make_unique<OlderProjectCommands>(main));
  main.addCommands(std::make_unique<SettingsCommands>(main));
  main.addCommands(std::make_unique<CastCommands>(main));
  main.addCommands(std::make_unique<ChapterCommands>(main));
  main.addCommands(std::make_unique<SceneCommands>(main));
  main.addCommands(std::make_unique<FontCommand>(main));
  main.addCommands(std::make_unique<SearchCommands>(main));
  main.addCommands(std::make_unique<ToolCommands>(main));
  main.addCommands(std::make_unique<BackupCommands>(main));
  main.addCommands(std::make_unique<StatisticsCommands>(main));
  main.addCommands(std::make_unique<WindowCommands>(main));
  main.addCommands(std::make_unique<PrintCommands>(main));
  main.addCommands(std::make_unique<ImportCommands>(main));
  main.addCommands(std::make_unique<HtmlExportCommand>(main));
  main.addCommands(std::make_unique<TextExportCommands>(main));
  main.addCommands(std::make_unique<TimelineCommand>(main));
}
