#pragma once

#include "core/infra/WebTransfer.h"

#include <QString>

#include <exception>
#include <functional>

/// Fetches texts and files from the web: by HTTP, HTTPS and FTP, never from the secure one over to another, with the
/// server's certificate checked, and through the system's own proxy until ApplyProxy was called. It fetches only, so
/// there is no event for an upload that failed.
class cSHAREDInternet {
 public:
  /// A text is taken up to this length.
  static constexpr qint64 kMostOfText = 1'000'000;

  /// Told what a transfer is at, in English.
  std::function<void(const QString& status)> Status;
  /// The answer has begun to come.
  std::function<void()> Receiving;
  /// Told how many bytes have come.
  std::function<void(qint64 received)> Progress;
  std::function<void()> DownloadFinished;
  std::function<void()> DownloadCancelled;
  /// Told why, in English.
  std::function<void(const QString& why)> DownloadError;
  /// The server, or the proxy in front of it, isn't found or doesn't listen; DownloadError follows.
  std::function<void()> NoInternet;

  /// No Status.
  bool SuppressAllButDLAndErrors = false;
  /// Nothing but NoInternet and DownloadError.
  bool SuppressAllButErrors = false;
  /// A file whose length the server doesn't announce isn't taken when it is longer.
  qint64 MostBytes = 100'000'000;
  /// A transfer that gets no further for so long has failed.
  qint64 TimeoutMs = 60'000;
  /// How this address is to be read when a server sends on to it, empty where it may not; null lets it send to any
  /// that is no less safe.
  std::function<QString(const QString& address)> MayBeSentTo;

  /// Takes the settings of the proxy over for the transfers that follow.
  void ApplyProxy();
  /// Waits for a text as GetFile does for a file. Nothing but the request goes out: no name of the program, nothing of
  /// the book. Empty, and logged, when it failed.
  QString OpenURL(const QString& Address);
  /// Waits for the file, yielding to the message loop all the while; what is up meanwhile doesn't keep it from coming.
  /// What stands at LocalFile is replaced when all of it has come, and stays otherwise. False, and logged, when it
  /// failed or was cancelled, and when one is under way.
  bool GetFile(const QString& Address, const QString& LocalFile);
  /// The size that the server announced; 0 when none.
  qint64 ExpectedFilesize() const { return expected_; }
  /// The SHA-256 of the last file that came.
  QByteArray Hash() const { return hash_; }
  /// Whether the last transfer failed because fewer bytes came than were announced.
  bool WasCutShort() const { return cutShort_; }
  /// Whether a connection exists.
  bool Connected() const { return connected_; }
  /// Makes a transfer give up; nothing when none is running.
  void Cancel() { cancelled_ = true; }

 private:
  struct Steps;

  template <class Fetch>
  bool run(const QString& address, Fetch&& fetch);
  template <class Event, class... Arguments>
  void raise(const Event& event, const Arguments&... arguments) const;
  bool finish(const std::exception_ptr& failure);
  void tell(TransferState state);
  void tellFailure(const std::exception_ptr& failure);
  void fetch(WebRequest request, const WebTransfer::Sink& sink);
  void follow(WebTransfer& transfer);
  bool step(Steps& steps);
  void tellProgress(Steps& steps);

  WebProxy proxy_;
  qint64 expected_ = 0;
  QByteArray hash_;
  bool running_ = false;
  bool cancelled_ = false;
  bool connected_ = false;
  bool cutShort_ = false;
};
