#pragma once

#include <QStringList>
#include <QStringView>

class clsProject;

/// The numbers that chapters bear in their titles: "Chapter 7".
namespace ChapterNumbers {

/// What a chapter is called in front of its number: in English, and in the language that is in force.
QStringList words();
/// What the chapter of this number may be called, in both.
QStringList titles(qint64 number);
/// In the language that is in force.
QString title(qint64 number);

/// The number behind the last blank of a title, cut to a whole one; 0 where there is none.
qint64 inTitle(QStringView title);
/// The highest that any chapter's title ends in.
qint64 highest(const clsProject& project);
/// Numbers the chapters in order, those that are called so, in either language: whatever else stands in such a title
/// goes, and is logged. Other titles don't count. How many have another title than before.
qint32 renumber(clsProject& project);

}  // namespace ChapterNumbers
