#include "core/spell/cDict.h"

#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cDict";

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\0';
}

QByteArrayView withoutBlanks(QByteArrayView line) {
  while (!line.isEmpty() && isBlank(line.back())) {
    line.chop(1);
  }
  while (!line.isEmpty() && isBlank(line.front())) {
    line = line.sliced(1);
  }
  return line;
}

bool isLineEnd(char c) {
  return c == '\n' || c == '\r';
}

/// A damaged file may be all line ends, so that their number promises no words.
size_t wordsExpected(const QByteArray& text) {
  constexpr std::ptrdiff_t kMostExpected = 1'000'000;
  return static_cast<size_t>(std::min(kMostExpected, std::count(text.begin(), text.end(), '\n')));
}

/// Adds so many lines and returns where the next one begins.
qsizetype addLines(WordSet& words, const QByteArray& text, qsizetype from, int lines) {
  auto at = text.begin() + from;
  for (; at != text.end() && lines > 0; --lines) {
    const auto end = std::find_if(at, text.end(), isLineEnd);
    words.insert(WordKey(withoutBlanks(QByteArrayView(at, end - at))));
    at = std::find_if_not(end, text.end(), isLineEnd);
  }
  return at - text.begin();
}

/// The file's bytes with these lines behind them, in the encoding that it has. A file of Windows-1252 that the new
/// words don't fit into becomes one of UTF-8.
QByteArray withLines(const QByteArray& file, const QStringList& lines) {
  QString added = lines.join(u"\r\n"_s) + u"\r\n"_s;
  if (!file.isEmpty() && !isLineEnd(file.back())) {
    added.prepend(u"\r\n"_s);
  }
  if (QByteArrayView(file).isValidUtf8()) {
    return file + added.toUtf8();
  }
  return CodePage::canEncode(added) ? file + CodePage::toBytes(added) : (CodePage::fromBytes(file) + added).toUtf8();
}

}  // namespace

void cDict::LoadDict(const QString& file, bool clear, bool& result) {
  BeginLoad(file, clear);
  while (!LoadSome()) {
  }
  result = Loaded;
}

void cDict::BeginLoad(const QString& file, bool clear) {
  Filename = file;
  if (clear) {
    Words.clear();
  }
  Source& source = loading_.emplace();
  source.wasRead = Guard("LoadDict", kModule)([&] {
    const std::optional<QByteArray> content = readWholeFile(Paths::native(file));
    source.isThere = content.has_value();
    source.utf8 = content.value_or(QByteArray());
    if (!source.utf8.isValidUtf8()) {
      source.utf8 = CodePage::fromBytes(source.utf8).toUtf8();
    }
    Words.reserve(Words.size() + wordsExpected(source.utf8));
  });
}

bool cDict::LoadSome() {
  constexpr int kLines = 10'000;
  if (!loading_) {
    return true;
  }
  const bool goesOn =
      Guard("LoadDict", kModule)([this] { loading_->at = addLines(Words, loading_->utf8, loading_->at, kLines); });
  if (goesOn && loading_->at < loading_->utf8.size()) {
    return false;
  }
  endLoad();
  return true;
}

void cDict::endLoad() {
  const Source source = std::move(*loading_);
  loading_.reset();
  for (const QString& word : std::as_const(unsaved_)) {
    Words.insert(WordKey(word));
  }
  WordTotal = static_cast<qint32>(Words.size());
  Loaded = !Words.isEmpty();
  if (source.wasRead && source.utf8.isEmpty()) {
    Logging().LogEvent(source.isThere ? Filename + u" is empty"_s : u"Could not find "_s + Filename);
  } else if (source.wasRead && Loaded) {
    Logging().LogEvent(u"Loaded dictionary '"_s + Filename + u"' and total words now equal "_s +
                       QString::number(WordTotal) + u'.');
  }
}

QString cDict::AddNewWords(const QStringList& words) {
  if (Filename.isEmpty()) {
    return {};
  }
  for (const QString& given : words) {
    // A line end in a word would make two of it when the file is read.
    for (const QString& line : QString(given).replace(u'\r', u'\n').split(u'\n')) {
      const QString word = line.trimmed();
      if (Words.insert(WordKey(word))) {
        unsaved_.append(word);
      }
    }
  }
  WordTotal = static_cast<qint32>(Words.size());
  Loaded = !Words.isEmpty();
  return SaveNewWords();
}

QString cDict::SaveNewWords() {
  if (unsaved_.isEmpty()) {
    return {};
  }
  const QString cause = Guard("AddNewWord", kModule).causeOf([&] {
    // What another copy of the program, or the writer's own hand, has put there meanwhile stays.
    const QByteArray now = readWholeFile(Paths::native(Filename)).value_or(QByteArray());
    if (now.isEmpty()) {
      Files().MkMissingDir(Files().PathOnly(Filename));
    }
    Files().ReplaceFile(Filename, withLines(now, unsaved_));
  });
  if (cause.isEmpty()) {
    unsaved_.clear();
  }
  return cause;
}
