#pragma once

#include "core/infra/CurlLibrary.h"
#include "core/infra/RuntimeError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

/// Which way a request takes to the web.
struct WebProxy {
  enum Type : qint16 { System = 1, Named = 2, None = 0 };
  qint16 type = System;
  QByteArray server;
  QByteArray user;
  QByteArray password;
};

struct WebRequest {
  QString address;
  /// An answer that is longer isn't taken,
  qint64 mostBytes = 0;
  /// unless its length is announced and this says that such a one may be as long as it likes.
  bool takesAnnounced = false;
  WebProxy proxy = {};
  /// How this address is to be read when a server sends on to it, empty where it may not; null lets it send to any
  /// that is no less safe.
  std::function<QString(const QString& address)> mayBeSentTo = {};
};

/// What a transfer is at, in the order in which it usually gets there.
enum class TransferState {
  ResolvingHost,
  HostResolved,
  Connecting,
  Connected,
  Requesting,
  RequestSent,
  ReceivingResponse,
  ResponseReceived,
  Disconnecting,
  Disconnected,
  Error,
  ResponseCompleted,
  /// What a proxy or an FTP server says before it is asked for anything.
  OtherResponse
};

/// In English, for the log; marked to be translated where it is shown.
QString textOf(TransferState state);

/// What kept a transfer from coming to its end.
class TransferError : public RuntimeError {
 public:
  enum class Kind { Unreachable, CutShort, Other };

  /// What the library says of it goes into the log as well.
  explicit TransferError(const QString& why, Kind kind = Kind::Other, const QString& detail = {})
      : RuntimeError(RuntimeError::DeviceError, detail.isEmpty() ? why : why + QStringLiteral(": ") + detail),
        why_(why),
        kind_(kind) {}
  /// As it may be told, in English.
  const QString& why() const { return why_; }
  Kind kind() const { return kind_; }

 private:
  QString why_;
  Kind kind_;
};

/// One request, and where its bytes go.
class WebTransfer {
 public:
  using Sink = std::function<void(QByteArrayView)>;

  WebTransfer(WebRequest request, Sink sink);
  /// Whatever is under way ends at once.
  ~WebTransfer();
  WebTransfer(const WebTransfer&) = delete;
  WebTransfer& operator=(const WebTransfer&) = delete;

  /// Takes what has come. False once that is all; throws what kept it from coming.
  bool goOn();
  /// Until there is more to take, and no longer than a moment.
  void wait();
  /// What it has got to since it was asked last.
  QList<TransferState> takeStates() { return std::exchange(states_, {}); }
  qint64 received() const { return received_; }
  /// 0 as long as it isn't known.
  qint64 announced() const;

 private:
  template <class Value>
  void set(CURLoption option, Value value) {
    curl_.setOption(handle_.get(), option, value);
  }
  /// For what a transfer would be less safe without.
  template <class Value>
  void mustSet(CURLoption option, Value value) {
    check(curl_.setOption(handle_.get(), option, value));
  }
  void describe();
  void watch();
  void allow();
  void useProxy(const WebProxy& proxy);
  void reach(TransferState state);
  void answered();
  void take(QByteArrayView bytes);
  bool isSentOn() const;
  /// Asks where the server has sent to, if that may be.
  void sendOn();
  void check(CURLcode result) const;

  /// Called by the library, which no exception may travel through.
  static int onResolving(void* resolver, void* reserved, void* transfer) noexcept;
  static int onSocket(void* transfer, curl_socket_t socket, curlsocktype purpose) noexcept;
  static int onConnected(void* transfer, char* there, char* here, int portThere, int portHere) noexcept;
  static size_t onHeader(const char* bytes, size_t size, size_t count, void* transfer) noexcept;
  static size_t onBytes(const char* bytes, size_t size, size_t count, void* transfer) noexcept;

  const CurlLibrary& curl_ = CurlLibrary::get();
  const std::unique_ptr<CURLM, decltype(&::curl_multi_cleanup)> queue_{curl_.makeQueue(), curl_.freeQueue};
  const std::unique_ptr<CURL, decltype(&::curl_easy_cleanup)> handle_{curl_.makeRequest(), curl_.freeRequest};
  const WebRequest request_;
  const Sink sink_;
  QList<TransferState> states_;
  TransferState state_ = TransferState::Disconnected;
  bool isConnected_ = false;
  qint64 received_ = 0;
  int sentOn_ = 0;
  std::exception_ptr failure_;
  std::array<char, CURL_ERROR_SIZE> why_{};
};
