#include "gui/shell/main/MenuBindings.h"

#include "core/infra/RuntimeError.h"
#include "gui/shell/main/MainMenu.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isInMenu(const QString& baseName) {
  const std::vector<MenuEntry>& table = mainMenuTable();
  return std::any_of(table.begin(), table.end(),
                     [&](const MenuEntry& line) { return menuBaseName(QString::fromLatin1(line.name)) == baseName; });
}

}  // namespace

const MenuBindings::Command* MenuBindings::find(const QString& baseName) const {
  return commands_.value(baseName).get();
}

void MenuBindings::add(const char* name, Handler run) {
  const QString key = QString::fromLatin1(name);
  if (!isInMenu(key)) {
    throw RuntimeError(RuntimeError::InvalidCall, u"No entry of the menu has the name "_s + key);
  }
  if (isBound(key)) {
    throw RuntimeError(RuntimeError::DuplicateKey);
  }
  commands_.insert(key, std::make_shared<const Command>(Command{QByteArray(name) + "_Click", std::move(run)}));
}
