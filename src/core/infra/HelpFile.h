#pragma once

#include <QString>

/// The program's help. Where no manual is installed, nothing should offer it.
namespace HelpFile {

bool isInstalled();

/// The address that opens the manual at a topic, an empty one being its first page; the maker's help page where no
/// manual is installed.
QString address(const QString& topic = {});
/// False when nothing could be opened.
bool open(const QString& topic = {});

}  // namespace HelpFile
