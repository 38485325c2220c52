#pragma once

#include <QHash>
#include <QString>
#include <QVariant>

#include <deque>
#include <vector>

/// One entry: the key as it was first stored, without commas, and text or a number; never a boolean.
struct cSHAREDSetting {
  QString KeyName;
  QVariant KeyValue;
};

/// A window whose size is kept. All sizes are twips; the screen is what of it windows may cover.
class SettingsWindow {
 public:
  enum class State { Normal = 0, Minimised = 1, Maximised = 2 };

  virtual ~SettingsWindow() = default;
  virtual State state() const = 0;
  virtual double width() const = 0;
  virtual double height() const = 0;
  virtual double screenWidth() const = 0;
  virtual double screenHeight() const = 0;
  virtual void setWidth(double twips) = 0;
  virtual void setHeight(double twips) = 0;
  virtual void maximise() = 0;
};

/// A list whose column widths are kept, in twips; columns count from 1.
class SettingsColumns {
 public:
  virtual ~SettingsColumns() = default;
  virtual int count() const = 0;
  virtual double width(int column) const = 0;
  virtual void setWidth(int column, double twips) = 0;
};

/// The user's preferences: an ordered table of keys and values, read whole from a text file and written whole
/// when asked. Keys are found without regard to case and to commas in them. Nothing fails outward.
///
/// A value is invalid (empty), text or a number (int or double). A boolean becomes -1 or 0 when stored. What
/// was read from a file is text, numbers too (" 5 "): use Numbers::ToInt or Numbers::ToNumber on a result.
class cSHAREDSettings {
 public:
  int SettingsCount() const { return static_cast<int>(entries_.size()); }
  /// Positions count from 1; empty for a bad one.
  QString SettingNameByIndex(int index) const;

  void sSet(const QString& key, const QVariant& value) { StoreSetting(key, value); }
  void StoreSetting(const QString& key, const QVariant& value) { AddSetting(key, value); }
  QVariant sGetWD(const QString& key, const QVariant& defaultValue) const {
    return RetrieveWithDefault(key, defaultValue);
  }
  /// A stored value that is a number other than zero; the default in every other case.
  QVariant RetrieveWithDefault(const QString& key, const QVariant& defaultValue) const;
  QVariant sGet(const QString& key, const QVariant& defaultValue = {}) const {
    return RetrieveSetting(key, defaultValue);
  }
  /// The stored value, else the default. Text that says true or false comes as a boolean, of the default too.
  QVariant RetrieveSetting(const QString& key, const QVariant& defaultValue = {}) const;
  bool IsSettingPresent(const QString& key) const;
  void DeleteAllSettings();
  void DeleteSettingByName(const QString& key);
  void DeleteSetting(int index);

  /// The old file stays whole until the new one stands in its place. Speaks to the user when the file can't be
  /// written; false when it wasn't.
  bool SaveSettings(const QString& path);
  /// The table holds afterwards what the file holds; nothing when there is no file.
  void LoadSettings(const QString& path);
  /// One value of a file, for whoever can't wait until all are read; nothing is said of what is wrong with the file.
  static QVariant storedIn(const QString& path, const QString& key);

  // Sets: growing lists kept as N_INDEX, N_1, N_2 and so on.

  /// The member number used.
  int AddToSet(const QString& setName, const QVariant& value);
  int LastIndexInSet(const QString& setName) const;
  /// Only the first of several equal members goes; those behind it move up.
  void DeleteFromSetByValue(const QString& setName, const QString& value);
  bool ValueInSet(const QString& setName, const QString& value) const;
  int SetCount(const QString& setName) const;
  void DeleteASet(const QString& setName);

  void StoreWindowSettings(const QString& name, const SettingsWindow& form);
  void ReadWindowSettings(const QString& name, SettingsWindow& form) const;
  void StoreColumnSettings(const QString& name, const SettingsColumns& list);
  void ReadColumnSettings(const QString& name, SettingsColumns& list) const;

 private:
  /// An entry and the number by which it is found: numbers rise, and holes stay where entries went.
  struct Entry {
    qint64 number;
    cSHAREDSetting setting;
  };

  void AddSetting(const QString& key, const QVariant& value);
  /// The place of an entry that is there.
  size_t placeOf(qint64 number) const;
  const cSHAREDSetting* find(const QString& key) const;
  QByteArray fileContent() const;
  bool keepUnread(const QString& path);
  void loadLine(const QByteArray& line);
  std::vector<int> membersOf(const QString& setName, qint64 last) const;

  /// The file that the last load found and could not read.
  QString unread_;
  std::deque<Entry> entries_;
  qint64 nextNumber_ = 0;
  /// The numbers by the upper-cased key, which is what stands in the file.
  QHash<QString, qint64> index_;
};

/// The application's one table.
cSHAREDSettings& Settings();
