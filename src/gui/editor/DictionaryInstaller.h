#pragma once

#include "core/infra/cSHAREDInternet.h"

#include <functional>

class QString;

/// Fetches the word lists from the web and puts them in their place. The program goes on meanwhile.
class DictionaryInstaller {
 public:
  /// What is being done, for the caption of the window that asked for it.
  std::function<void(const QString& what)> Status;

  /// True once it has run to its end and told how that was; false when it was cancelled. One at a time in the program.
  bool run();
  /// Gives up and says nothing more.
  void Cancel();
  static bool isRunning();
  /// Makes the one that is running give up, whoever began it.
  static void CancelRunning();

 private:
  /// What the user is told in the end; empty when it got no further than the download.
  QString install();
  /// Until it has come or the user gives up.
  bool download();
  void tellProgress(qint64 received) const;

  cSHAREDInternet internet_;
  bool cancelled_ = false;
};
