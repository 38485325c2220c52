#include "core/persist/OlderFiles.h"

#include "core/infra/CodePage.h"
#include "core/infra/FirstOf.h"
#include "core/infra/KeyedLines.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/clsProject.h"
#include "core/text/Tags.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

KeyedFile::KeyedFile(const QByteArray& content) {
  for (const QByteArray& line : KeyedLines::of(content)) {
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
  const QString value = text(key).trimmed();
  return value.isEmpty() ? 0 : Numbers::DayNumber(CodePage::toBytes(value));
}

// The keys are looked through, not the numbers: a damaged count may be anything.
QStringList KeyedFile::list(const QString& name) const {
  const QString prefix = name.toUpper() + u'_';
  const QString index = prefix + u"INDEX"_s;
  const bool isCounted = values_.contains(name.toUpper()) || values_.contains(index);
  const int count = isCounted ? std::max(integer32(name), integer32(index)) : std::numeric_limits<int>::max();
  std::vector<std::pair<int, QString>> entries;
  for (auto entry = values_.keyValueBegin(); entry != values_.keyValueEnd(); ++entry) {
    const int number = entry->first.startsWith(prefix) ? QStringView(entry->first).sliced(prefix.size()).toInt() : 0;
    if (number > 0 && number <= count) {
      entries.emplace_back(number, entry->second);
    }
  }
  std::sort(entries.begin(), entries.end());
  QStringList values;
  for (const auto& [number, value] : entries) {
    values.append(value);
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

OlderFiles::OlderFiles(const clsProject& project)
    : folder_(project.Path() + Files().NameOnDisk(project.Path(), u"Data"_s) + Paths::separator()) {}

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

QStringList OlderFiles::findings() const {
  QStringList sentences;
  const auto tell = [&](const QString& what, const QStringList& names) {
    if (!names.isEmpty()) {
      sentences.append(what + firstOf(names).join(u"; "_s));
    }
  };
  tell(u"Missing in the old project, or not to be read: "_s, missing_);
  tell(u"Not understood, and left empty: "_s, unread_);
  return sentences;
}
