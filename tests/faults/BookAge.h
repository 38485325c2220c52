#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// What a writer would miss in a book: the plan, and the texts by the scenes' IDs.
struct BookContent {
  QString plan;
  QMap<qint32, QByteArray> texts;

  bool operator==(const BookContent&) const = default;
};

/// Of the project in g_Project.
BookContent contentOfProject();

/// TextsAhead: the old plan, and some texts as they were to become; a save that is cut off may leave that behind.
/// TextsBehind: the new plan, and some texts as they were; they are still due. Lost: anything else.
enum class Age { Old, TextsAhead, New, TextsBehind, Lost };

/// The age of a content, known what it was before a save and what it was to be behind it. `wrong` says what is lost.
Age ageOf(const BookContent& now, const BookContent& before, const BookContent& after, QString& wrong);
