#include "core/infra/cSHAREDSettings.h"

#include "core/infra/Blanks.h"
#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/KeyedLines.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <exception>
#include <iterator>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cSHAREDSettings";

QString withoutCommas(QString key) {
  return key.remove(u',');
}

/// The truth that a text says in English or in the system's language, if it says one.
std::optional<bool> truthOf(const QString& text) {
  const QString word = text.trimmed().toUpper();
  if (word == u"FALSE" || word == Dates().FalseStr()) {
    return false;
  }
  return word == u"TRUE" || word == Dates().TrueStr() ? std::optional(true) : std::nullopt;
}

int asInteger(bool truth) {
  return truth ? -1 : 0;
}

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

/// Empty, text, int or double: what the table holds.
QVariant stored(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::QString:
      return value;
    case QMetaType::Bool:
      return asInteger(value.toBool());
    case QMetaType::Float:  // as it prints, without the digits that only the wider type has
      return QByteArray::number(value.toDouble(), 'g', kSingleDigits).toDouble();
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
      return value.toDouble();
    default:
      return value.toString();
  }
}

/// A number as a printed line shows it: a blank where the plus sign would stand, the digits, a blank behind.
QByteArray printForm(const QVariant& value) {
  if (value.typeId() == QMetaType::Int || value.typeId() == QMetaType::Double) {
    const QByteArray digits = value.typeId() == QMetaType::Int
                                  ? QByteArray::number(value.toInt())
                                  : QByteArray::number(value.toDouble(), 'g', kDoubleDigits).toUpper();
    return (digits.startsWith('-') ? "" : " ") + digits + ' ';
  }
  return CodePage::toMarkedLine(value.toString());
}

QString volumeNamed(const QString& path) {
  const bool hasDrive = path.size() > 1 && path[1] == u':';
  return hasDrive ? Files().DriveOnly(path) : QStorageInfo(Files().PathOnly(path)).rootPath();
}

bool askAfterDiskFull(const QString& path) {
  const QString text = translated(
      u"You've run out of disk space on drive %1:\rPlease clear some space and then click Retry, else click Cancel to "
      "abort."_s);
  return toolkit().MsgBox(text.arg(volumeNamed(path)), Buttons::RetryCancel) == Answer::Retry;
}

bool tellReadOnly() {
  toolkit().MsgBox(u"Your settings file is read-only and I can't change it. Save cancelled."_s);
  return false;
}

void showLineError(const RuntimeError& error, const QByteArray& line, const QString& path) {
  ShowError().ShowErr(toldText(u"Error %1 in setting file. Line: %2 of %3"_s,
                               {QString::number(error.number()), CodePage::fromMarkedBytes(line), path}));
}

/// What is done about a failed save. True when it is worth another try; made writable in vain it is not.
class SaveRecovery {
 public:
  explicit SaveRecovery(const QString& path) : path_(path) {}

  bool tryAgain(const RuntimeError& error) {
    switch (error.number()) {
      case RuntimeError::PathAccess:
      case RuntimeError::BadFileName: {
        const bool writable = !madeWritable_ && Files().MakeReadWrite(path_);
        madeWritable_ = true;
        return writable || tellReadOnly();
      }
      case RuntimeError::DiskFull:
        return askAfterDiskFull(path_);
      default:
        ShowError().ShowErr(
            toldText(u"%1 - %2 in %3"_s, {QString::number(error.number()), error.description(), u"SaveSettings"_s}));
        return false;
    }
  }

 private:
  const QString& path_;
  bool madeWritable_ = false;
};

}  // namespace

QString cSHAREDSettings::SettingNameByIndex(int index) const {
  QString name;
  Guard("SettingNameByIndex", kModule)([&] {
    if (index < 1 || index > SettingsCount()) {
      throw RuntimeError(RuntimeError::OutOfBounds);
    }
    name = entries_[static_cast<size_t>(index) - 1].setting.KeyName;
  });
  return name;
}

size_t cSHAREDSettings::placeOf(qint64 number) const {
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), number,
                                      [](const Entry& entry, qint64 wanted) { return entry.number < wanted; });
  return static_cast<size_t>(found - entries_.begin());
}

const cSHAREDSetting* cSHAREDSettings::find(const QString& key) const {
  const auto found = index_.constFind(withoutCommas(key).toUpper());
  return found == index_.constEnd() ? nullptr : &entries_[placeOf(*found)].setting;
}

bool cSHAREDSettings::IsSettingPresent(const QString& key) const {
  return find(key) != nullptr;
}

void cSHAREDSettings::AddSetting(const QString& key, const QVariant& value) {
  Guard("AddSetting", kModule)([&] {
    const QString name = withoutCommas(key);
    const QString indexKey = name.toUpper();
    const auto found = index_.constFind(indexKey);
    if (found != index_.constEnd()) {
      entries_[placeOf(*found)].setting.KeyValue = stored(value);
      return;
    }
    entries_.push_back({nextNumber_, {name, stored(value)}});
    index_.insert(indexKey, nextNumber_++);
  });
}

QVariant cSHAREDSettings::RetrieveSetting(const QString& key, const QVariant& defaultValue) const {
  const cSHAREDSetting* setting = find(key);
  const QVariant& value = setting == nullptr ? defaultValue : setting->KeyValue;
  if (value.typeId() != QMetaType::QString) {
    return value;
  }
  const std::optional<bool> truth = truthOf(value.toString());
  return truth ? QVariant(*truth) : value;
}

QVariant cSHAREDSettings::RetrieveWithDefault(const QString& key, const QVariant& defaultValue) const {
  const QVariant value = RetrieveSetting(key, defaultValue);
  bool given = false;
  Guard("RetrieveWithDefault", kModule)([&] {
    const std::optional<double> number = value.isValid() ? Numbers::ToNumber(value) : 0;
    if (!number) {
      throw RuntimeError(RuntimeError::TypeMismatch);
    }
    given = *number != 0;
  });
  return given ? value : defaultValue;
}

void cSHAREDSettings::DeleteAllSettings() {
  index_.clear();
  entries_.clear();
}

void cSHAREDSettings::DeleteSettingByName(const QString& key) {
  const auto found = index_.find(withoutCommas(key).toUpper());
  if (found == index_.end()) {
    return;
  }
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(placeOf(*found)));
  index_.erase(found);
}

void cSHAREDSettings::DeleteSetting(int index) {
  Guard("DeleteSetting", kModule)([&] {
    if (index < 1 || index > SettingsCount()) {
      throw RuntimeError(RuntimeError::OutOfBounds);
    }
    DeleteSettingByName(QString(entries_[static_cast<size_t>(index) - 1].setting.KeyName));
  });
}

QByteArray cSHAREDSettings::fileContent() const {
  QByteArray content;
  for (const Entry& entry : entries_) {
    content +=
        CodePage::toMarkedLine(entry.setting.KeyName.toUpper()) + ',' + printForm(entry.setting.KeyValue) + "\r\n";
  }
  return content;
}

/// What could not be read is still the writer's: it is put aside before anything is written in its place.
bool cSHAREDSettings::keepUnread(const QString& path) {
  if (unread_ != path || !Files().FileExists(path)) {
    return true;
  }
  QString aside = path + u".bak"_s;
  for (int number = 1; QFileInfo::exists(aside); ++number) {
    aside = path + u".bak"_s + QString::number(number);
  }
  if (!Files().MoveFile(path, aside)) {
    Logging().AddDebug(u"Settings not saved: the old file could not be read and can't be put aside"_s,
                       u"SaveSettings"_s, QString::fromLatin1(kModule));
    return false;
  }
  unread_.clear();
  return true;
}

bool cSHAREDSettings::SaveSettings(const QString& path) {
  if (!keepUnread(path)) {
    return false;
  }
  SaveRecovery recovery(path);
  for (;;) {
    try {
      Files().ReplaceFile(path, fileContent());
      return true;
    } catch (const std::exception& failure) {
      if (!recovery.tryAgain(RuntimeError::of(failure))) {
        return false;
      }
    }
  }
}

void cSHAREDSettings::loadLine(const QByteArray& line) {
  if (const auto parts = KeyedLines::parted(line)) {
    const std::optional<bool> truth = truthOf(parts->value);
    AddSetting(parts->key, truth ? QVariant(asInteger(*truth)) : QVariant(parts->value));
  }
}

void cSHAREDSettings::LoadSettings(const QString& path) {
  DeleteAllSettings();
  QByteArray content;
  unread_.clear();
  try {
    content = readWholeFile(Paths::native(path)).value_or(QByteArray());
  } catch (const std::exception& failure) {
    unread_ = path;
    showLineError(RuntimeError::of(failure), {}, path);
  }
  for (const QByteArray& line : KeyedLines::of(content)) {
    try {
      loadLine(line);
    } catch (const std::exception& failure) {
      showLineError(RuntimeError::of(failure), line, path);
    }
  }
}

QVariant cSHAREDSettings::storedIn(const QString& path, const QString& key) {
  cSHAREDSettings settings;
  try {
    for (const QByteArray& line : KeyedLines::of(readWholeFile(Paths::native(path)).value_or(QByteArray()))) {
      settings.loadLine(line);
    }
  } catch (const std::exception&) {
    // The reading of all settings tells of it.
  }
  return settings.sGet(key);
}

int cSHAREDSettings::LastIndexInSet(const QString& setName) const {
  return std::max(Numbers::ToInt(sGet(setName.toUpper() + u"_INDEX"_s)), 0);
}

/// The numbers, up to the last one, under which the set has a member. One look-up each; where the index claims
/// more members than there are settings, the table is walked instead.
std::vector<int> cSHAREDSettings::membersOf(const QString& setName, qint64 last) const {
  const QString prefix = withoutCommas(setName).toUpper() + u'_';
  std::vector<int> numbers;
  if (last <= SettingsCount()) {
    for (int i = 1; i <= last; ++i) {
      if (index_.contains(prefix + QString::number(i))) {
        numbers.push_back(i);
      }
    }
    return numbers;
  }
  for (auto entry = index_.keyBegin(); entry != index_.keyEnd(); ++entry) {
    const int number = entry->startsWith(prefix) ? QStringView(*entry).sliced(prefix.size()).toInt() : 0;
    if (number > 0 && number <= last && index_.contains(prefix + QString::number(number))) {
      numbers.push_back(number);
    }
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

int cSHAREDSettings::AddToSet(const QString& setName, const QVariant& value) {
  const QString prefix = setName.toUpper() + u'_';
  int number = LastIndexInSet(setName);
  const bool found = Guard("AddToSet", kModule)([&] {
    do {
      if (number == std::numeric_limits<int>::max()) {
        throw RuntimeError(RuntimeError::Overflow);
      }
      ++number;
    } while (IsSettingPresent(prefix + QString::number(number)));
  });
  if (!found) {
    return 0;
  }
  StoreSetting(prefix + u"INDEX"_s, number);
  StoreSetting(prefix + QString::number(number), value);
  return number;
}

int cSHAREDSettings::SetCount(const QString& setName) const {
  const int last = LastIndexInSet(setName);
  const int count = static_cast<int>(membersOf(setName, last).size());
  if (count != last) {
    Logging().AddDebug(u"WARNING: LastIDX and Setcount not the same with setting '"_s + setName + u'\'');
  }
  return count;
}

bool cSHAREDSettings::ValueInSet(const QString& setName, const QString& value) const {
  const QString prefix = setName.toUpper() + u'_';
  const std::vector<int> members = membersOf(setName, LastIndexInSet(setName));
  return std::any_of(members.begin(), members.end(), [&](int number) {
    return Blanks::compare(find(prefix + QString::number(number))->KeyValue.toString(), value) == 0;
  });
}

void cSHAREDSettings::DeleteFromSetByValue(const QString& setName, const QString& value) {
  const QString prefix = setName.toUpper() + u'_';
  const int last = LastIndexInSet(setName);
  const std::vector<int> members = membersOf(setName, last);
  const auto match = std::find_if(members.begin(), members.end(), [&](int number) {
    return Blanks::compare(find(prefix + QString::number(number))->KeyValue.toString(), value) == 0;
  });
  if (match == members.end()) {
    return;
  }
  // Values move and keys stay, so that the order of the file does. A hole moves up with the members behind it.
  for (auto behind = std::next(match); behind != members.end(); ++behind) {
    const QString key = prefix + QString::number(*behind);
    StoreSetting(prefix + QString::number(*behind - 1), QVariant(find(key)->KeyValue));
    if (std::next(behind) == members.end() || *std::next(behind) != *behind + 1) {
      DeleteSettingByName(key);
    }
  }
  if (std::next(match) == members.end() || *std::next(match) != *match + 1) {
    DeleteSettingByName(prefix + QString::number(*match));
  }
  StoreSetting(prefix + u"INDEX"_s, last - 1);
}

void cSHAREDSettings::DeleteASet(const QString& setName) {
  constexpr int kMargin = 10;
  for (const int number : membersOf(setName, qint64{LastIndexInSet(setName)} + kMargin)) {
    DeleteSettingByName(setName.toUpper() + u'_' + QString::number(number));
  }
  DeleteSettingByName(setName.toUpper() + u"_INDEX"_s);
}

cSHAREDSettings& Settings() {
  static cSHAREDSettings settings;
  return settings;
}
