#pragma once

#include <QString>

/// The program's help: the installed help file where there is one, else the maker's help page.
namespace HelpFile {

/// The address that opens the help at a topic; an empty topic is its first page.
QString address(const QString& topic = {});
/// False when nothing could be opened.
bool open(const QString& topic = {});

}  // namespace HelpFile
