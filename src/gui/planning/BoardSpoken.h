#pragma once

/// From now on a screen reader takes the storyboard's ground for a list and its cards for the list's entries.
void speakOfCards();
