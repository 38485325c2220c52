#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

/// What the simple reading of RTF (mSHAREDRtf2Html3) takes from the tables at the head of a text.
namespace RtfHtmlTables {

/// "#rrggbb" of each colour behind the first ";", which ends the automatic one. The first of the list is \cf1.
QStringList colours(QByteArrayView table);
/// Face names by font number, as attributes hold them: of each entry the word behind its last blank.
QStringList faces(QByteArrayView table);

/// What two hexadecimal digits of \'xx stand for, as HTML; empty for what is dropped.
QString hexText(QByteArrayView digits);
/// True for the trade mark sign, which is told by RTF of its own: raised letters.
bool isTradeMark(QByteArrayView digits);

}  // namespace RtfHtmlTables
