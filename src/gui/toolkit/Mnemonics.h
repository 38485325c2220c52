#pragma once

#include <QList>
#include <QString>

class QAction;

/// The caption without the ampersands that mark a key; a doubled one is one that is shown.
QString withoutMnemonic(const QString& text);

/// What comes after all others as a key: few keyboards have it.
bool isAccented(QChar letter);

/// Marks a letter of each visible caption for the keyboard, no letter twice as long as there are letters: the first
/// of a word where one is free, any other letter or digit else. One without accent goes first, and a caption may change
/// its letter for one that finds none. Marks that were there before don't count, so that it
/// can be done again whenever a menu has changed or was translated.
void assignMnemonics(const QList<QAction*>& actions);
