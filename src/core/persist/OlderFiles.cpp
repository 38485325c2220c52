#include "core/persist/OlderFiles.h"

#include "core/infra/CodePage.h"
#include "core/infra/FirstOf.h"
#include "core/infra/KeyedLines.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"
#include "core/persist/OlderDate.h"
#include "core/text/Tags.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// As those programs wrote it: a present editor may have saved it with a mark, another one with ends of another
/// system.
QByteArray asWritten(QByteArray content) {
  if (content.startsWith("\xEF\xBB\xBF")) {
    content = CodePage::toMarkedBytes(WholeText::fromBytes(content));
  }
  return content.contains('\n') ? content : content.replace('\r', '\n');
}

}  // namespace

KeyedFile::KeyedFile(const QByteArray& content) {
  for (const QByteArray& line : KeyedLines::of(asWritten(content))) {
    if (const auto parts = KeyedLines::parted(line)) {
      values_.insert(parts->key.trimmed().toUpper(), parts->value);
    }
  }
}

QString KeyedFile::text(const QString& key, const QString& defaultValue) const {
  return values_.value(key.toUpper(), defaultValue);
}

QString KeyedFile::decoded(const QString& key) const {
  return Tags::HtmlDecode(CodePage::toMarkedBytes(text(key)));
}

qint32 KeyedFile::integer32(const QString& key) const {
  return Numbers::ToInt(text(key));
}

qint16 KeyedFile::integer16(const QString& key) const {
  using Limits = std::numeric_limits<qint16>;
  return static_cast<qint16>(std::clamp<qint32>(integer32(key), Limits::min(), Limits::max()));
}

bool KeyedFile::boolean(const QString& key) const {
  const QString value = text(key).trimmed();
  return value == u"-1"_s || value == u"1"_s || value.compare(u"True"_s, Qt::CaseInsensitive) == 0;
}

qint32 KeyedFile::date(const QString& key) const {
  return olderDay(text(key));
}

// The keys are looked through, not the numbers: a damaged count may be anything.
KeyedFile::Entries KeyedFile::entries(const QString& name) const {
  const QString prefix = name.toUpper() + u'_';
  Entries found;
  for (auto entry = values_.keyValueBegin(); entry != values_.keyValueEnd(); ++entry) {
    const int number = entry->first.startsWith(prefix) ? QStringView(entry->first).sliced(prefix.size()).toInt() : 0;
    if (number > 0) {
      found.emplace_back(number, entry->second);
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

QStringList KeyedFile::list(const QString& name) const {
  const qint32 count = counted(name).value_or(std::numeric_limits<qint32>::max());
  QStringList values;
  for (const auto& [number, value] : entries(name)) {
    if (number <= count) {
      values.append(value);
    }
  }
  return values;
}

std::vector<qint32> KeyedFile::ids(const QString& name) const {
  std::vector<qint32> numbers;
  for (const QString& entry : list(name)) {
    if (const qint32 id = Numbers::ToInt(entry); id != 0) {
      numbers.push_back(id);
    }
  }
  return numbers;
}

std::optional<qint32> KeyedFile::counted(const QString& name) const {
  std::optional<qint32> count;
  for (const QString& key : {name, name + u"_INDEX"_s}) {
    bool isNumber = false;
    text(key).trimmed().toDouble(&isNumber);
    if (isNumber) {
      count = std::max({0, count.value_or(0), integer32(key)});
    }
  }
  return count;
}

qint32 KeyedFile::found(const QString& name) const {
  return static_cast<qint32>(entries(name).size());
}

OlderFiles::OlderFiles(const clsProject& project)
    : folder_(project.Path(), project.Path() + Files().NameOnDisk(project.Path(), u"Data"_s) + Paths::separator()) {}

void OlderFiles::noteLost(const KeyedFile& from, const QString& list, const QString& where) {
  const std::optional<qint32> counted = from.counted(list);
  if (const qint32 found = from.found(list); counted && *counted != found) {
    const QString name = where.isEmpty() ? list : toldText(shownText(u"%1 of %2"_s), {list, where});
    miscounted_.append(
        toldText(shownText(u"%1 (%2 counted, %3 found)"_s), {name, QString::number(*counted), QString::number(found)}));
    Logging().LogEvent(u"Miscounted in the old project: "_s + miscounted_.constLast());
  }
}

void OlderFiles::noteLostIDs(const KeyedFile& from, const QString& list, const QString& where) {
  noteLost(from, list, where);
  for (const QString& entry : from.list(list)) {
    if (Numbers::ToInt(entry) == 0 && entry.trimmed() != u"0"_s) {
      noteUnread(toldText(shownText(u"%1 of %2: \"%3\""_s), {list, where, entry.trimmed()}));
    }
  }
}

std::optional<KeyedFile> OlderFiles::read(const QString& name) {
  const auto content = folder_.read(name);
  return content ? std::optional(KeyedFile(*content)) : std::nullopt;
}

void OlderFiles::importText(const KeyedFile& from, const QString& key, QString& into) {
  const QString name = from.text(key).trimmed();
  if (name.isEmpty() || !into.isEmpty()) {
    return;
  }
  if (const auto content = folder_.read(name)) {
    into = WholeText::fromBytes(*content);
  } else {
    noteMissing(name);
  }
}

void OlderFiles::noteMissing(const QString& what) {
  Logging().LogEvent(u"Missing in the old project, or not to be read: "_s + what);
  missing_.append(what);
}

void OlderFiles::noteUnread(const QString& what) {
  Logging().LogEvent(u"Not understood in the old project: "_s + what);
  unread_.append(what);
}

QStringList OlderFiles::findings() const {
  QStringList sentences;
  const auto tell = [&](const QString& what, const QStringList& names) {
    if (!names.isEmpty()) {
      QStringList told = firstOf(names);
      std::transform(told.begin(), told.end(), told.begin(), retold);
      sentences.append(translated(what) + told.join(u"; "_s));
    }
  };
  tell(shownText(u"Missing in the old project, or not to be read: "_s), missing_);
  tell(shownText(u"Lists that count other than they hold, so something of them may be lost: "_s), miscounted_);
  tell(shownText(u"Not understood, and left empty: "_s), unread_);
  return sentences;
}
