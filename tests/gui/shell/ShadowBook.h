#pragma once

#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QLocale>
#include <QMap>
#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

/// A book as plain lists of numbers and texts, changed by the rules that a writer is told and by nothing of the
/// program. What the program makes of the same commands is held against it.
struct ShadowBook {
  using IDs = QList<qint32>;

  struct Scene {
    QString title;
    QString text;
    QString notes;
    QString file;
    bool unused = false;
    int status = 0;
    /// Characters, locations and items.
    std::array<IDs, 3> cast;

    int words() const { return static_cast<int>(text.split(u' ', Qt::SkipEmptyParts).size()); }
  };
  struct Chapter {
    QString title;
    bool unused = false;
    IDs scenes;
  };

  QMap<qint32, Scene> scenes;
  QMap<qint32, Chapter> chapters;
  IDs order;
  /// Of characters, locations and items.
  std::array<QMap<qint32, QString>, 3> names;
  qint32 endOfBeginning = 0;
  qint32 endOfMiddle = 0;
  /// The scene that is open in an editor; 0 for none.
  qint32 open = 0;

  /// What the program's book is now.
  static ShadowBook of(const clsProject& book) {
    ShadowBook read;
    for (const auto& chapter : book.Chapters) {
      read.order += chapter->ID();
      read.chapters.insert(chapter->ID(), {chapter->Title, chapter->Unused, listOf(chapter->SceneIDs())});
    }
    for (const auto& scene : book.Scenes) {
      const std::array cast{listOf(scene->CharIDs()), listOf(scene->LocationIDs()), listOf(scene->ItemIDs())};
      read.scenes.insert(scene->ID(), {scene->Title, scene->ConvertedToBodyText(), scene->Notes, scene->RTFFilename(),
                                       scene->Unused, scene->Status, cast});
    }
    for (const auto& character : book.Chars) {
      read.names[0].insert(character->ID(), character->Title());
    }
    for (const auto& location : book.Locations) {
      read.names[1].insert(location->ID(), location->Title);
    }
    for (const auto& item : book.Items) {
      read.names[2].insert(item->ID(), item->Title);
    }
    read.endOfBeginning = book.EndBeginningChID;
    read.endOfMiddle = book.EndMiddleChID;
    return read;
  }

  /// Everything, a line for each chapter in order and for each scene by its number.
  QStringList told() const {
    QStringList lines{QStringLiteral("sections end at ") + joined({endOfBeginning, endOfMiddle})};
    for (const qint32 id : order) {
      const Chapter chapter = chapters.value(id);
      lines += line({QStringLiteral("chapter"), joined({id}), chapter.title, mark(chapter.unused, u"unused"),
                     joined(chapter.scenes)});
    }
    for (auto scene = scenes.begin(); scene != scenes.end(); ++scene) {
      lines += line({QStringLiteral("scene"), joined({scene.key()}), scene->title, scene->text, scene->notes,
                     scene->file, mark(scene->unused, u"unused"), joined({scene->status}), joined(scene->cast[0]),
                     joined(scene->cast[1]), joined(scene->cast[2])});
    }
    for (const auto& kind : names) {
      lines += line(kind.values());
    }
    return lines;
  }

  // The rows of the main window's lists: tag, cells with the colours of those that have one, what the row says of
  // itself.

  QStringList chapterRows() const {
    QStringList rows;
    int count = 0;
    // Below 0 for no mark, or for one of a chapter that has gone: nothing comes behind it.
    const qsizetype beginning = order.indexOf(endOfBeginning);
    const qsizetype middle = order.indexOf(endOfMiddle);
    for (const qint32 id : order) {
      const Chapter chapter = chapters.value(id);
      const QString colour = chapter.unused ? QStringLiteral(" #808080") : QStringLiteral(" #008000");
      const bool inEnd = middle >= 0 && rows.size() > middle;
      const bool inMiddle = beginning >= 0 && rows.size() > beginning;
      count += wordsOf(id);
      rows +=
          line({joined({id}), chapter.title + colour, formatted(wordsOf(id)) + colour, formatted(chapter.scenes.size()),
                formatted(count) + QLatin1String(inEnd      ? " #c00000"
                                                 : inMiddle ? " #ff8000"
                                                            : " #008000"),
                states({mark(chapter.unused, u"unused"), mark(inEnd, u"end section"),
                        mark(inMiddle && !inEnd, u"middle section"),
                        mark(beginning >= 0 && !inMiddle && !inEnd, u"beginning section")})});
    }
    return rows;
  }

  QStringList sceneRows(qint32 chapter) const {
    constexpr std::array kStatusNames{"", "Outline", "Draft", "1st Edit", "2nd Edit", "Done"};
    QStringList rows;
    for (const qint32 id : chapters.value(chapter).scenes) {
      const Scene scene = scenes.value(id);
      const QString status = QLatin1String(kStatusNames.at(static_cast<size_t>(scene.status)));
      rows +=
          line({joined({id}), scene.cast[0].isEmpty() ? QStringLiteral("N/A") : names[0].value(scene.cast[0].first()),
                formatted(scene.words()), scene.title.isEmpty() ? QStringLiteral("Untitled scene") : scene.title,
                status + mark(scene.unused, u" #808080"), QStringLiteral("A"), scene.file, formatted(scene.text.size()),
                states({mark(scene.unused, u"unused"), mark(id == open, u"open in an editor"),
                        mark(!scene.notes.isEmpty(), u"has a note")})});
    }
    return rows;
  }

  int words() const {
    int words = 0;
    for (const qint32 id : order) {
      words += wordsOf(id);
    }
    return words;
  }

  /// To the place that the target has before the first one leaves it.
  void moveScenes(qint32 chapter, const IDs& moved, qint32 target) {
    reorder(chapters[chapter].scenes, moved, target, false);
  }
  void moveChapters(const IDs& moved, qint32 target) { reorder(order, moved, target, target != order.constLast()); }
  void moveScenesTo(qint32 chapter, const IDs& moved) {
    for (const qint32 id : moved) {
      leaveChapter(id);
      chapters[chapter].scenes.append(id);
    }
  }
  void removeScene(qint32 id) {
    leaveChapter(id);
    scenes.remove(id);
  }
  /// The first, third, fifth scene leaves the book; the others stay in no chapter.
  void removeChapter(qint32 id) {
    const IDs held = chapters.take(id).scenes;
    for (qsizetype i = 0; i < held.size(); i += 2) {
      scenes.remove(held[i]);
    }
    order.removeOne(id);
  }
  void addChapters(qint32 firstID, int count) {
    int highest = 0;
    for (const Chapter& chapter : std::as_const(chapters)) {
      const QString title = chapter.title.trimmed();
      highest = std::max(highest, title.contains(u' ') ? title.section(u' ', -1).toInt() : 0);
    }
    for (int i = 0; i < count; ++i) {
      order += firstID + i;
      chapters.insert(firstID + i, {QStringLiteral("Chapter %1").arg(highest + 1 + i), false, {}});
    }
  }
  void addScenes(qint32 chapter, qint32 firstID, int count) {
    for (int i = 0; i < count; ++i) {
      chapters[chapter].scenes += firstID + i;
      scenes.insert(firstID + i, {QStringLiteral("New Scene %1").arg(i + 1), {}, {}, {}, false, 0, {}});
    }
  }
  void renumber() {
    int number = 0;
    for (const qint32 id : std::as_const(order)) {
      QString& title = chapters[id].title;
      title = title.toLower().contains(u"chapter") ? QStringLiteral("Chapter %1").arg(++number) : title;
    }
  }
  void changeCast(qint32 scene, size_t kind, const IDs& ids, bool add) {
    IDs& list = scenes[scene].cast.at(kind);
    for (const qint32 id : ids) {
      if (!add) {
        list.removeOne(id);
      } else if (!list.contains(id)) {
        list.append(id);
      }
    }
  }
  bool narratesSomewhere(qint32 character) const {
    return std::any_of(scenes.begin(), scenes.end(),
                       [character](const Scene& scene) { return scene.cast[0].value(0) == character; });
  }
  void removeCast(size_t kind, qint32 id) {
    names.at(kind).remove(id);
    for (Scene& scene : scenes) {
      scene.cast.at(kind).removeOne(id);
    }
  }

 private:
  static void reorder(IDs& list, IDs moved, qint32 target, bool backwards) {
    const qsizetype position = list.indexOf(target);
    if (backwards) {
      std::reverse(moved.begin(), moved.end());
    }
    for (const qint32 id : moved == IDs{target} ? IDs() : moved) {
      list.removeOne(id);
      list.insert(std::min(position, list.size()), id);
    }
  }
  void leaveChapter(qint32 scene) {
    for (Chapter& chapter : chapters) {
      chapter.scenes.removeOne(scene);
    }
  }
  int wordsOf(qint32 id) const {
    const Chapter chapter = chapters.value(id);
    int words = 0;
    for (const qint32 scene : chapter.scenes) {
      words += chapter.unused || scenes.value(scene).unused ? 0 : scenes.value(scene).words();
    }
    return words;
  }

  static IDs listOf(const IDList& ids) { return {ids.begin(), ids.end()}; }
  static QString line(const QStringList& fields) { return fields.join(QStringLiteral(" | ")); }
  static QString formatted(qsizetype number) { return QLocale().toString(number); }
  static QString mark(bool holds, QStringView text) { return holds ? text.toString() : QString(); }
  static QString states(QStringList all) {
    all.removeAll(QString());
    return all.join(QStringLiteral(", "));
  }
  static QString joined(const IDs& ids) {
    QStringList texts;
    for (const qint32 id : ids) {
      texts += QString::number(id);
    }
    return texts.join(u',');
  }
};
