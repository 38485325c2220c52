#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

/// Fetches texts and files from the web: by HTTP, HTTPS and FTP, never from the secure one over to another, with the
/// server's certificate checked, and through the system's own proxy until ApplyProxy was called.
class cSHAREDInternet {
 public:
  /// A text is taken up to this length.
  static constexpr qint64 kMostOfText = 1'000'000;

  /// Told what a transfer is at.
  std::function<void(const QString& status)> Status;
  /// Told how many bytes have come, while GetFile runs.
  std::function<void(qint64 received)> Progress;
  /// A file that is longer isn't taken.
  qint64 MostBytes = 100'000'000;
  /// A transfer that gets no further for so long has failed.
  qint64 TimeoutMs = 60'000;
  /// A server that sends elsewhere is followed.
  bool MayBeSentElsewhere = true;

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
  /// Makes GetFile give up; nothing when it isn't running.
  void Cancel() { cancelled_ = true; }

 private:
  class Transfer;
  struct Steps;
  using Sink = std::function<void(QByteArrayView)>;
  struct Proxy {
    enum Type : qint16 { System = 1, Named = 2, None = 0 };
    qint16 type = System;
    QByteArray server;
    QByteArray user;
    QByteArray password;
  };

  template <class Fetch>
  bool run(const QString& address, Fetch&& fetch);
  void tell(const QString& status) const;
  void fetch(const QString& address, const QString& file);
  void fetchText(const QString& address, QByteArray& text);
  void follow(Transfer& transfer);
  bool step(Steps& steps);

  Proxy proxy_;
  qint64 expected_ = 0;
  bool running_ = false;
  bool cancelled_ = false;
};
