#pragma once

#include "core/infra/clsHashTable.h"

#include <QString>
#include <QStringList>

#include <memory>

class clsProject;

/// The current project; never null while the program runs. "No project" is an empty one whose FileWithPath is "".
extern std::unique_ptr<clsProject> g_Project;

/// Which records are open in an editor and which have changed since each window last looked.
extern clsHashTable g_SceneChanges;
extern clsHashTable g_CharChanges;
extern clsHashTable g_LocationChanges;
extern clsHashTable g_ItemChanges;

/// Indexed by a scene's Status; element 0 is a placeholder.
extern QStringList g_StatusNames;
/// The default names of the four ratings, 1 to 4; element 0 is a placeholder.
extern QStringList g_RatingNames;
/// Both as the program begins with them.
QStringList usualStatusNames();
QStringList usualRatingNames();
/// What the rating `number`, 1 to 4, is called where it is shown: the usual names are in the language that is in force,
/// and one that the writer hasn't named is told by its number.
QString shownRating(int number, const QString& title);
/// What is kept of a rating's name as it was typed: a usual one of the language that is in force is kept in English.
QString keptRating(const QString& typed);

/// Full path of the settings file.
extern QString g_SettingsFile;
extern bool g_DebugMode;
/// Print defaults.
extern bool g_DblSpaced;
extern bool g_12Spaced;
extern qint16 g_FontSize;
extern QString g_FontName;

/// Four empty change tables, ready for use.
void initChangeTables();
