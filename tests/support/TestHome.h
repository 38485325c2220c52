#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Before anything else in a test program: a temporary home and program folder, a fixed locale, and the log
/// kept out of the way. The folder goes with the object.
class TestHome {
 public:
  TestHome();
  ~TestHome();
  TestHome(const TestHome&) = delete;
  TestHome& operator=(const TestHome&) = delete;

 private:
  QTemporaryDir folder_;
};

/// A fresh folder for one test, removed with the object.
class ScratchFolder {
 public:
  /// Full path of a name in the folder.
  QString path(const QString& name = {}) const;

 private:
  QTemporaryDir folder_;
};

/// The folder of the shared test material (novels, rich-text files, tools), or empty where it is absent.
QString sharedFolder();
/// Makes a project of one of the novels there in a folder. The path of its file; empty when that failed.
QString makeNovel(const QString& folder, const QString& novel, const QStringList& options = {});
