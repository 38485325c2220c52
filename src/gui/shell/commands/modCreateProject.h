#pragma once

/// Replaces the project by a new empty one and asks where to save it. False when that was given up: the empty
/// project is in place all the same.
bool CreateEmptyProject();
