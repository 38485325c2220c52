#pragma once

#include <QString>

#include <array>

/// The files of the word lists: what they are called and where they stand.
namespace WordLists {

constexpr size_t kCount = 7;
/// The writer's own list, which no other replaces.
constexpr size_t kCustom = 0;

/// File names in the order in which the lists are searched.
const std::array<QString, kCount>& names();
/// The folder of the lists in the program's own one, with a trailing separator.
QString folder();
/// Full path. The custom list stands with the program's data; another that isn't there may have been installed with
/// the program.
QString pathOf(size_t list);
/// Whether there is a folder of lists, in one place or the other.
bool isFolderThere();

}  // namespace WordLists
