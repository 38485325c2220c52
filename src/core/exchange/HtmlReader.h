#pragma once

#include "core/text/RichText.h"

#include <QString>

/// The text of an HTML page as a writer sees it: paragraphs, headings, list entries, table rows and breaks end a
/// paragraph, runs of white space are one blank, references are their characters; bold, italic and underlined letters
/// stay so, by their tags, by a style that stands in one or by a class of the page's style sheets. Head, scripts, style
/// sheets and comments are no text. A "<" that begins no tag is itself. One pass, whatever stands there.
RichText readHtml(const QString& html);
