#pragma once

/// Puts all windows into a language: an index of Lang()'s, 0 for English. From then on each window and menu is
/// translated as it is shown, whoever made it, and so is a caption that changes. In English nothing is watched and
/// nothing costs anything. What a window has translated itself it makes anew as it hears of the change
/// (QEvent::LanguageChange). False when the language can't be read: it is English then.
bool useLanguage(int index);
