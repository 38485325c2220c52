#pragma once

#include <QString>

/// Looks a word up on the web, in the dictionary or in the thesaurus of the settings. What is no single word is told.
void lookUpInDictionary(const QString& selected);
void lookUpInThesaurus(const QString& selected);
