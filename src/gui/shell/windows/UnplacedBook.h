#pragma once

#include <QString>

/// What a command says behind its work on the whole book where that has no place of its own: what has changed stands in
/// memory. Empty for a book that has one.
QString howToKeepChanges();
