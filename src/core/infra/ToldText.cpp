#include "core/infra/ToldText.h"

#include "core/infra/cSharedLang.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QRegularExpression>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Told {
  QString pattern;
  QStringList arguments;
};

/// Texts that may still be shown: the ones that were told last.
struct Memory {
  QMutex lock;
  QHash<QString, Told> texts;
  QStringList order;
};

Memory& memory() {
  static Memory texts;
  return texts;
}

std::optional<Told> remembered(const QString& text) {
  const QMutexLocker locked(&memory().lock);
  const auto found = memory().texts.constFind(text);
  return found == memory().texts.constEnd() ? std::nullopt : std::optional(*found);
}

void forgetOldest(qsizetype count) {
  for (const QString& text : memory().order.first(count)) {
    memory().texts.remove(text);
  }
  memory().order.remove(0, count);
}

/// All at once: an argument may hold what looks like a place.
QString filled(const QString& pattern, const QStringList& arguments) {
  static const QRegularExpression place(u"%L?([0-9]{1,2})"_s);
  QString text;
  qsizetype done = 0;
  for (auto found = place.globalMatch(pattern); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const qsizetype index = match.captured(1).toInt() - 1;
    if (index >= 0 && index < arguments.size()) {
      text += pattern.sliced(done, match.capturedStart() - done) + arguments[index];
      done = match.capturedEnd();
    }
  }
  return text + pattern.sliced(done);
}

/// What stands in front of a colon may be a text of its own: "Disk full: %1".
QString patternInLanguage(const QString& pattern) {
  static const QString kPlace = u" %1"_s;
  const QString whole = Lang().WordsOf(pattern);
  const bool isNamed = whole == pattern && pattern.endsWith(u':' + kPlace);
  return isNamed ? Lang().WordsOf(pattern.chopped(kPlace.size())) + kPlace : whole;
}

}  // namespace

QString toldText(const QString& pattern, const QStringList& arguments) {
  QString text = filled(pattern, arguments);
  constexpr qsizetype kMost = 4096;
  const QMutexLocker locked(&memory().lock);
  const bool isKnown = memory().texts.contains(text);
  if (!isKnown) {
    memory().order.append(text);
  }
  // Told again as an argument it is still made of what it was made of.
  if (!isKnown || !arguments.isEmpty()) {
    memory().texts.insert(text, {pattern, arguments});
  }
  if (memory().order.size() > kMost) {
    forgetOldest(kMost / 2);
  }
  return text;
}

QString retold(const QString& text) {
  const std::optional<Told> told = Lang().IsEnglish() ? std::nullopt : remembered(text);
  if (!told) {
    return text;
  }
  QStringList arguments = told->arguments;
  std::transform(arguments.begin(), arguments.end(), arguments.begin(), retold);
  return filled(patternInLanguage(told->pattern), arguments);
}
