#pragma once

#include <QStringView>

/// A text as bytes for the word count. What the code page lacks is classed by Unicode and gets a byte of the same
/// class, so that any script counts its words: a letter or digit, a space, or neither.
namespace WordBytes {

/// One byte a unit, never 0, to where there is room for them all. A pair of surrogates gives its class twice.
void write(QStringView text, char* out);

}  // namespace WordBytes
