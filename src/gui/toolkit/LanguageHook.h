#pragma once

#include <QString>

class QWidget;

/// Puts this window, and all that are there besides, into a language: an index of Lang()'s, 0 for English. From then on
/// each window and menu is translated as it is shown, whoever made it, and so is a caption that changes. In English
/// nothing is watched and nothing costs anything. False when the language can't be read: it is English then.
bool useLanguage(int index, QWidget& window);
