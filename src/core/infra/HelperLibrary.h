#pragma once

#include <QString>
#include <QtGlobal>

#include <array>

/// The names of the essential helper libraries, in the order in which the start-up looks for them.
inline constexpr std::array kHelperLibraries{"qnHtml2.dll", "qnHtml.dll", "Hash.dll"};

/// A routine of one of the program's helper libraries, which is loaded at the first call and stays loaded. Throws
/// RuntimeError 53 when the library or the routine is missing.
QFunctionPointer helperRoutine(const char* library, const char* routine);
