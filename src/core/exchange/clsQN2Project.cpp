#include "core/exchange/clsQN2Project.h"

#include "core/exchange/TextLines.h"
#include "core/infra/CodePage.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/persist/OldFolder.h"
#include "core/persist/OlderDate.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The next field of a line, which ends at a comma. Quotes around it go, and commas between them stay.
QString takeField(QStringView& rest) {
  rest = rest.trimmed();
  const qsizetype quote = rest.startsWith(u'"') ? rest.indexOf(u'"', 1) : -1;
  const qsizetype comma = rest.indexOf(u',', quote < 0 ? 0 : quote);
  QString field = rest.first(comma < 0 ? rest.size() : comma).toString();
  rest = comma < 0 ? QStringView() : rest.sliced(comma + 1);
  return field.remove(u'"').trimmed();
}

/// Quotes around all of it go; those inside belong to the text.
QString wholeOf(QStringView rest) {
  const QStringView text = rest.trimmed();
  const bool isQuoted = text.size() > 1 && text.startsWith(u'"') && text.indexOf(u'"', 1) == text.size() - 1;
  return (isQuoted ? text.sliced(1, text.size() - 2) : text).toString();
}

/// The index of "NAME1", "NAME2" ... from 0; -1 for another keyword.
int indexIn(const QString& keyword, const QString& name, size_t count) {
  const bool fits = keyword.size() == name.size() + 1 && keyword.startsWith(name);
  const int index = fits ? keyword.back().digitValue() - 1 : -1;
  return index < static_cast<int>(count) ? index : -1;
}

}  // namespace

bool clsQN2Project::LoadProject(const QString& File) {
  QString name = File;
  name.remove(u'"');
  auto loadingNum = std::move(LoadingNum);
  *this = clsQN2Project();
  LoadingNum = std::move(loadingNum);
  Logging().LogEvent(u"Attempting to load "_s + name);
  std::optional<QByteArray> content;
  Guard("LoadProject", "clsQN2Project")([&] { content = readWholeFile(Paths::native(name)); });
  if (!content) {
    return false;
  }
  Logging().LogEvent(u"Filename: "_s + name);
  Logging().LogEvent(u"File opened"_s);
  const QString path = Files().PathOnly(name);
  OldFolder folder(path, path);
  OldFolder actors(path, clsQN2Actor::ActorPath(path));
  QStringList lines = linesOf(WholeText::fromBytes(*content));
  Title = lines.isEmpty() ? QString() : lines.takeFirst();
  for (const QString& line : lines) {
    readLine(line, folder);
  }
  for (const Chapter& chapter : Chapters) {
    for (const clsQN2Scene& scene : chapter.Text.Scenes) {
      addActor(scene.Actor, actors);
    }
  }
  Logging().LogEvent(u"Finished loading project"_s);
  const QString unseen = WholeText::fromBytes(actors.read(u"Charlist.dat"_s).value_or(QByteArray()));
  for (const QString& actor : linesOf(unseen)) {
    addActor(actor.trimmed(), actors);
  }
  return isAnyRead_ || !Actors.empty();
}

void clsQN2Project::readLine(QStringView line, OldFolder& folder) {
  if (line.trimmed().isEmpty()) {
    return;
  }
  const QString field = takeField(line);
  if (readKeyword(field.toUpper(), line)) {
    isAnyRead_ = true;
  } else {
    readChapter(field, line, folder);
  }
}

bool clsQN2Project::readKeyword(const QString& keyword, QStringView rest) {
  const QString text = wholeOf(rest);
  if (keyword == u"ACTOR"_s) {
    return true;
  }
  if (keyword == u"AUTHOR"_s) {
    Author = text;
  } else if (const int rating = indexIn(keyword, u"FIELD"_s, FieldTitle.size()); rating >= 0) {
    FieldTitle[static_cast<size_t>(rating)] = text;
  } else if (const int level = indexIn(keyword, u"DEADLINE"_s, DeadlineDate.size()); level >= 0) {
    readDate(keyword, text, DeadlineDate[static_cast<size_t>(level)]);
  } else if (const int start = indexIn(keyword, u"DEADLINESTART"_s, DeadlineStartDate.size()); start >= 0) {
    readDate(keyword, text, DeadlineStartDate[static_cast<size_t>(start)]);
  } else if (keyword == u"WORDTARGETSTARTDATE"_s) {
    readDate(keyword, text, WordTargetStartDate);
  } else if (keyword == u"WORDTARGETENDDATE"_s) {
    readDate(keyword, text, WordTargetEndDate);
  } else if (keyword == u"WORDTARGET"_s) {
    readNumber(keyword, text, WordTarget);
  } else if (keyword == u"WORDCOUNTSTART"_s) {
    readNumber(keyword, text, WordCountStart);
  } else {
    return false;
  }
  return true;
}

void clsQN2Project::readDate(const QString& keyword, const QString& text, qint32& into) {
  const Guard guard("LoadProject", "clsQN2Project");
  if (!guard([&] { into = olderDay(text); })) {
    noteUnread(keyword, text);
  }
}

void clsQN2Project::readNumber(const QString& keyword, const QString& text, qint32& into) {
  const Guard guard("LoadProject", "clsQN2Project");
  if (!guard([&] { into = Numbers::Strict32(CodePage::toBytes(text)); })) {
    noteUnread(keyword, text);
  }
}

void clsQN2Project::noteUnread(const QString& keyword, const QString& text) {
  unread_.append(keyword + u" \""_s + text + u'"');
  Logging().LogEvent(u"Not understood in the old project: "_s + unread_.constLast());
}

void clsQN2Project::readChapter(const QString& title, QStringView rest, OldFolder& folder) {
  if (LoadingNum) {
    LoadingNum(static_cast<qint32>(Chapters.size()) + 1);
  }
  takeField(rest);
  const QString file = takeField(rest);
  Chapter chapter{title, {}};
  if (chapter.Text.LoadText(folder, file, false)) {
    isAnyRead_ = true;
  } else {
    missing_.append(
        toldText(u"%1 (%2)"_s, {title, file.isEmpty() ? toldText(shownText(u"no file is named"_s)) : file}));
    Logging().LogEvent(u"The text of a chapter is missing or can't be read: "_s + missing_.constLast());
  }
  Chapters.push_back(std::move(chapter));
}

void clsQN2Project::addActor(const QString& name, OldFolder& actors) {
  const QString key = name.toUpper();
  if (name.isEmpty() || actorNumbers_.contains(key)) {
    return;
  }
  actorNumbers_.insert(key, static_cast<qint32>(Actors.size()));
  Actors.emplace_back(name);
  Actors.back().LoadActorDetails(actors);
}

qint32 clsQN2Project::ActorNum(const QString& name) const {
  return actorNumbers_.value(name.toUpper(), -1);
}

QStringList clsQN2Project::findings() const {
  QStringList sentences;
  if (!missing_.isEmpty()) {
    QStringList told = firstOf(missing_);
    std::transform(told.begin(), told.end(), told.begin(), retold);
    sentences.append(translated(u"The text of these chapters is missing or can't be read, and they are empty: "_s) +
                     told.join(u"; "_s));
  }
  if (!unread_.isEmpty()) {
    sentences.append(translated(u"Not understood, and left empty: "_s) + firstOf(unread_).join(u"; "_s));
  }
  return sentences;
}
