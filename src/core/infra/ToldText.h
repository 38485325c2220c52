#pragma once

#include <QString>
#include <QStringList>

/// A text that is logged and kept in English and told to the user as well: the pattern with the arguments in its
/// places. It is remembered, so that translated() finds what it was made of. Also by itself, as an argument of another
/// one.
QString toldText(const QString& pattern, const QStringList& arguments = {});

/// Such a text in the language that is in force; any other one as it is.
QString retold(const QString& text);
