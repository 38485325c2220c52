#include "core/spell/ProblemWords.h"

#include "core/infra/cSHAREDSettings.h"

using namespace Qt::StringLiterals;

namespace {

QString keyOf(int number) {
  return u"BadWord"_s + QString::number(number);
}

}  // namespace

QStringList ProblemWords::load() {
  QStringList words;
  for (int number = 0; number <= kMost; ++number) {
    const QString word = Settings().sGet(keyOf(number)).toString();
    if (!word.isEmpty()) {
      words.append(word);
    }
  }
  return words;
}

void ProblemWords::store(const QStringList& words) {
  // An older file may hold one word more than there are keys now: it keeps the key that it had.
  const int first = words.size() > kMost ? 0 : 1;
  if (first == 1) {
    Settings().DeleteSettingByName(keyOf(0));
  }
  for (int number = first; number <= kMost; ++number) {
    Settings().sSet(keyOf(number), words.value(number - first));
  }
}
