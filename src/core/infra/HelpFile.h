#pragma once

#include <QString>

#include <functional>

/// The program's help: a folder of pages. Where no manual is installed, nothing should offer it.
namespace HelpFile {

/// The property by which a window names its page where that depends on what it was opened for.
inline constexpr auto kPage = "helpPage";

bool isInstalled();

/// The address that opens the manual at a topic: the page of that name, a place of that name in the first page where
/// there is no such page, and the first page for an empty one. The maker's help page where no manual is installed.
QString address(const QString& topic = {});

/// Shows an address of the manual; false when it can't.
using Window = std::function<bool(const QString& address)>;
/// Installed once by whoever has a window for it; without one, and without a manual, the desktop opens the address.
void installWindow(Window window);

/// False when nothing could be opened.
bool open(const QString& topic = {});

}  // namespace HelpFile
