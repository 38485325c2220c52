#pragma once

#include "text/RichText.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>

class QTextDocument;

/// Rich texts to and from the documents of a text control: a paragraph is a block, a line break is U+2028 in it.
/// A document that was filled from a text and not changed gives back an equal text.
namespace RichTextDocument {

/// What the format does not state is left to the document's default font and to the palette.
QTextCharFormat toQt(const CharFormat& format);
CharFormat fromQt(const QTextCharFormat& format);
QTextBlockFormat toQt(const ParagraphFormat& format);
ParagraphFormat fromQt(const QTextBlockFormat& format);

/// Fills an empty document; fast while no control shows it.
void fill(QTextDocument& document, const RichText& text);
RichText read(const QTextDocument& document);

}  // namespace RichTextDocument
