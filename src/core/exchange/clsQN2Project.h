#pragma once

#include "core/exchange/clsQN2Actor.h"
#include "core/exchange/clsQN2Text.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <functional>
#include <vector>

/// A project of generation 2 as its files have it.
class clsQN2Project {
 public:
  struct Chapter {
    QString Title;
    clsQN2Text Text;
  };

  QString Title;
  QString Author;
  /// Names of the ratings; empty for those that the project doesn't name.
  std::array<QString, 4> FieldTitle;
  /// Day numbers, by status.
  std::array<qint32, 5> DeadlineDate{};
  std::array<qint32, 5> DeadlineStartDate{};
  qint32 WordTargetStartDate = 0;
  qint32 WordTargetEndDate = 0;
  qint32 WordTarget = 0;
  qint32 WordCountStart = 0;
  std::vector<Chapter> Chapters;
  /// Of the scenes, and those without one.
  std::vector<clsQN2Actor> Actors;

  /// Before each chapter is read; counted from 1.
  std::function<void(qint32)> LoadingNum;

  /// Reads the file and all that belongs to it. False when there is nothing to import: neither the text of a chapter
  /// nor an actor nor anything that the file itself tells by a keyword.
  bool LoadProject(const QString& File);
  /// Position of an actor in Actors, by the name in any letters; -1 for an unknown one.
  qint32 ActorNum(const QString& name) const;
  /// What the writer is to know of: what wasn't there and what was not understood. A sentence for each kind.
  QStringList findings() const;

 private:
  void readLine(QStringView line, OldFolder& folder);
  bool readKeyword(const QString& keyword, QStringView rest);
  void readChapter(const QString& title, QStringView rest, OldFolder& folder);
  void readDate(const QString& keyword, const QString& text, qint32& into);
  void readNumber(const QString& keyword, const QString& text, qint32& into);
  void noteUnread(const QString& keyword, const QString& text);
  void addActor(const QString& name, OldFolder& actors);

  QHash<QString, qint32> actorNumbers_;
  bool isAnyRead_ = false;
  QStringList missing_;
  QStringList unread_;
};
