#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringView>

/// Words as HTML holds them.
namespace HtmlText {

/// HTML 4's name of a character, without "&" and ";"; empty for one that has none.
QLatin1StringView entityName(char16_t character);

/// Appends a text so that a reader of HTML sees that text and no markup: ASCII as it is, all else as references.
/// What HTML has no place for, such as control characters, is left out; a tab stays, and what else parts words is a
/// blank.
void append(QString& html, QStringView text);
/// The same as a text of its own.
QString escaped(QStringView text);
/// The same for what stands between the double quotes of an attribute.
QString attribute(QStringView text);

}  // namespace HtmlText
