#pragma once

class clsScene;

/// Whether the scene can leave the book: its text stands in its file. Says so when it doesn't.
bool mayLeaveBook(const clsScene& scene);
