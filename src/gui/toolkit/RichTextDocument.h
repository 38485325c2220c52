#pragma once

#include "core/text/RichText.h"

#include <QTextCharFormat>
#include <QTextFormat>

class QTextCursor;
class QTextDocument;

/// Rich texts to and from the documents of a text control: a paragraph is a block, a line break is U+2028 in it.
/// A document that was filled from a text and not changed gives back an equal text.
namespace RichTextDocument {

/// What the format does not state is left to the document's default font and to the palette.
QTextCharFormat toQt(const CharFormat& format);
CharFormat fromQt(const QTextCharFormat& format);
/// A paragraph with a bullet joins the list of this number; without one it shows none.
QTextBlockFormat toQt(const ParagraphFormat& format, int list = -1);
ParagraphFormat fromQt(const QTextBlockFormat& format);
/// Makes a list of bullets, which the cursor's paragraph joins, and gives its number.
int bulletList(QTextCursor& cursor);

/// Fills an empty document; fast while no control shows it.
void fill(QTextDocument& document, const RichText& text);
RichText read(const QTextDocument& document);

}  // namespace RichTextDocument
