#pragma once

#include <QString>

#include <functional>

/// Fetches files from the web: by HTTP and HTTPS, never from the secure one over to the other, and through the system's
/// own proxy.
class cSHAREDInternet {
 public:
  /// Told how many bytes have come, while GetFile runs.
  std::function<void(qint64 received)> Progress;
  /// A file that is longer isn't taken.
  qint64 MostBytes = 100'000'000;
  /// A transfer that gets no further for so long has failed.
  qint64 TimeoutMs = 60'000;

  /// Waits for the file, yielding to the message loop all the while; what is up meanwhile doesn't keep it from coming.
  /// What stands at LocalFile is replaced when all of it has come, and stays otherwise. False, and logged, when it
  /// failed or was cancelled, and when one is under way.
  bool GetFile(const QString& Address, const QString& LocalFile);
  /// The size that the server announced; 0 when none.
  qint64 ExpectedFilesize() const { return expected_; }
  /// Makes GetFile give up; nothing when it isn't running.
  void Cancel() { cancelled_ = true; }

 private:
  class Transfer;
  struct Steps;

  void fetch(const QString& address, const QString& file);
  void follow(Transfer& transfer);
  bool step(Steps& steps);

  qint64 expected_ = 0;
  bool running_ = false;
  bool cancelled_ = false;
};
