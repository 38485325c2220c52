#pragma once

/// From now on Qt's own dialogs ask the language that is in force for their words. Captions with a key are left to
/// LanguageHook, which finds each a key that is free in its window.
void translateQtTexts();
