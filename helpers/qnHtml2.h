#pragma once

#include "Export.h"

#include <cstddef>

// The routines of qnHtml2.dll: Base64, of strings and of byte arrays, and bytes as text.

/// Base64 of `length` bytes into `out`, which holds 4 * ((length + 2) / 3) bytes; one line, padded.
/// Gives the number of bytes written.
QUILLANE_EXPORT std::size_t cEncode64String(const char* text, std::size_t length, char* out);
QUILLANE_EXPORT std::size_t cEncode64(const unsigned char* bytes, std::size_t length, char* out);

/// The bytes of a Base64 text into `out`, which holds 3 * (length / 4 + 1) bytes. White space is passed over and
/// missing padding is borne. Gives the number of bytes written, or -1 for text that is no Base64.
QUILLANE_EXPORT std::ptrdiff_t cDecode64String(const char* text, std::size_t length, char* out);
QUILLANE_EXPORT std::ptrdiff_t cDecode64(const char* text, std::size_t length, unsigned char* out);

/// Bytes of the code page as `length` UTF-16 units.
QUILLANE_EXPORT void cByteArrayToString(const unsigned char* bytes, std::size_t length, char16_t* out);
