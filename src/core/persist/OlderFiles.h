#pragma once

#include "core/persist/OldFolder.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

class clsProject;

/// A file of a generation-3 project: keyed lines. Keys are found in any letters.
class KeyedFile {
 public:
  explicit KeyedFile(const QByteArray& content);

  /// As it stands; the default where the key is missing.
  QString text(const QString& key, const QString& defaultValue = {}) const;
  /// Without its percent escapes.
  QString decoded(const QString& key) const;
  /// 0 for what is no number.
  qint32 integer32(const QString& key) const;
  qint16 integer16(const QString& key) const;
  bool boolean(const QString& key) const;
  /// The day number; 0 where the key is missing. Throws RuntimeError 13 for what is no date.
  qint32 date(const QString& key) const;
  /// The entries X_1, X_2 ... of the list X, as many as X or X_INDEX counts; all where neither is a number.
  QStringList list(const QString& name) const;
  std::vector<qint32> ids(const QString& name) const;
  /// How many entries the list X has by its count; nothing where no number tells.
  std::optional<qint32> counted(const QString& name) const;
  /// How many it has, whatever is counted.
  qint32 found(const QString& name) const;

 private:
  using Entries = std::vector<std::pair<int, QString>>;
  /// With their numbers, in the order of these.
  Entries entries(const QString& name) const;

  /// By the keys in capitals.
  QHash<QString, QString> values_;
};

/// The files of a generation-3 project in its folder Data, of which none is touched, and what could not be read of it.
class OlderFiles {
 public:
  explicit OlderFiles(const clsProject& project);

  /// Nothing for a file that is missing or can't be read.
  std::optional<KeyedFile> read(const QString& name);
  /// The plain text file that an older key names goes into the text, if that is empty still.
  void importText(const KeyedFile& from, const QString& key, QString& into);

  /// Notes what a damaged list loses: entries beyond its count, or fewer than that; `where` is what the list belongs
  /// to.
  void noteLost(const KeyedFile& from, const QString& list, const QString& where = {});
  /// The same for a list of IDs, whose entries may be none.
  void noteLostIDs(const KeyedFile& from, const QString& list, const QString& where);

  /// What the writer is to know of: what wasn't there, and what was not understood. All of it is logged.
  void noteMissing(const QString& what);
  void noteUnread(const QString& what);
  /// A sentence for each kind.
  QStringList findings() const;

 private:
  OldFolder folder_;
  QStringList missing_;
  QStringList miscounted_;
  QStringList unread_;
};
