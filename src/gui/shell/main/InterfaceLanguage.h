#pragma once

#include <QString>

class frmMain;

inline const QString kLanguageSetting = QStringLiteral("langID");

/// Shows the program in the language of this title. False when it isn't there, which changes nothing, or can't be read,
/// which leaves English.
bool useLanguage(frmMain& main, const QString& title);
/// Before there is a window: what is asked and told at once is in the stored language already.
void loadStoredLanguage();
/// At start-up. In English nothing is looked for. The title of a stored language that can't be read.
QString useStoredLanguage(frmMain& main);
/// For who translates: the texts of all windows that are open, in a file beside the settings, and every language file
/// with the entries of its template that it lacks. False when the texts could not be written.
bool updateLanguageFiles();
/// The languages that are there now, the one in use checked.
void fillLanguageMenu(frmMain& main);
