#pragma once

#include "core/text/RichText.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTextCharFormat>
#include <QTextFormat>

class QTextCursor;
class QTextDocument;

/// Rich texts to and from the documents of a text control: a paragraph is a block, a line break is U+2028 in it, an
/// object is U+FFFC of the type objectType. A document that was filled from a text and not changed gives back an equal
/// text. Links, hidden text and text on a colour of its own have a look that their format doesn't state.
namespace RichTextDocument {

inline constexpr int objectType = QTextFormat::UserObject;

/// What the format does not state is left to the document's default font and to the palette, on which the looks that
/// are not the format's own can be read.
QTextCharFormat toQt(const CharFormat& format, const QPalette& palette = QGuiApplication::palette());
/// With the object, if the format is that of one.
CharFormat fromQt(const QTextCharFormat& format);
QTextBlockFormat toQt(const ParagraphFormat& format);
ParagraphFormat fromQt(const QTextBlockFormat& format);

/// Whether a stretch of this format stands for an object: text that was typed behind one inherits its format.
bool isObject(const QTextCharFormat& format, QStringView text);

/// Fills an empty document; fast while no control shows it.
void fill(QTextDocument& document, const RichText& text, const QPalette& palette = QGuiApplication::palette());
RichText read(const QTextDocument& document);
/// Puts the text in place of the selection, as RichText::replace does; the cursor goes behind it.
void insert(QTextCursor& cursor, const RichText& text, const QPalette& palette = QGuiApplication::palette());
/// Gives links, hidden text and the like from one place to another their own look again, on this palette.
void refreshLooks(QTextDocument& document, int from, int to, const QPalette& palette);
bool hasOwnLooks(const RichText& text);

/// How far the first lines of paragraphs hang out over the margins, in pixels.
struct Overhang {
  double left = 0;
  double right = 0;
};
Overhang overhang(const RichText& text);
bool hasLists(const RichText& text);

}  // namespace RichTextDocument
