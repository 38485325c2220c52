#include "core/model/SaveNote.h"

#include "core/infra/Clock.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedLang.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What the file system says, without the path that it says it of.
QString inPlainWords(const QString& why) {
  const std::pair<int, QString> known[] = {
      {RuntimeError::DiskFull, shownText(u"the disk is full"_s)},
      {RuntimeError::PathAccess, shownText(u"the file or its folder can't be written"_s)},
  };
  for (const auto& [number, words] : known) {
    if (why.startsWith(RuntimeError::descriptionOf(number))) {
      return words;
    }
  }
  return why;
}

}  // namespace

void SaveNote::bookSaved() {
  failed_ = Failed::Nothing;
  savedAt_ = Clock::now();
}

void SaveNote::bookNotSaved(const QString& why) {
  failed_ = Failed::Book;
  why_ = inPlainWords(why);
}

void SaveNote::textSaved(bool allSaved) {
  if (failed_ == Failed::Nothing || (failed_ == Failed::Text && allSaved)) {
    failed_ = Failed::Nothing;
    savedAt_ = Clock::now();
  }
}

void SaveNote::textNotSaved(const QString& why) {
  if (failed_ != Failed::Book) {
    failed_ = Failed::Text;
    why_ = inPlainWords(why);
  }
}

QString SaveNote::text() const {
  if (failed()) {
    return why_.isEmpty() ? translated(u"Not saved"_s)
                          : translated(u"Not saved: %1"_s).arg(translated(why_).simplified());
  }
  return savedAt_.isValid() ? translated(u"Saved %1"_s).arg(cSharedDateSubs::HourAndMinute(savedAt_.time()))
                            : QString();
}
