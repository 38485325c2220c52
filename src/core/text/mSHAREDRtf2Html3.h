#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

/// A scene's RTF as a piece of HTML whose tags are well nested: no page around it, no error for any bytes. Options are
/// found anywhere in `options`:
///
///   +CR    CR LF behind each "<br>"
///   +F=n   a font size of n isn't told
///   -FF    font faces aren't told
///   +I     is known and has no effect
///   +U     all that the RTF says as text arrives as that text, and formats end where they end there
///
/// Without "+U" the reading is a simple one: it knows what a rich-text control writes and passes over the rest, also
/// typographic quotes and dashes, and leaves markup in the text as it is.
QString Rtf2Html(const QByteArray& rtf, QStringView options);
