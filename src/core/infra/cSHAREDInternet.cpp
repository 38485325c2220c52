#include "core/infra/cSHAREDInternet.h"

#include "core/infra/Clock.h"
#include "core/infra/CurlLibrary.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedEncrypt.h"
#include "core/infra/cSharedLogging.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Between two yields. Who goes on typing while a file comes doesn't feel it.
constexpr int kPauseMs = 5;
constexpr int kUnderWindowsMs = 20;
constexpr long kMostRedirections = 10;

[[noreturn]] void fail(const QString& why) {
  throw RuntimeError(RuntimeError::DeviceError, why);
}

}  // namespace

struct cSHAREDInternet::Steps {
  Transfer& transfer;
  /// How many bytes were told, and when.
  qint64 told;
  qint64 last;
};

/// One request, and where its bytes go.
class cSHAREDInternet::Transfer {
 public:
  Transfer(const cSHAREDInternet& internet, const QString& address, qint64 mostBytes, Sink sink);
  ~Transfer();
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /// Takes what has come. False once that is all; throws what kept it from coming.
  bool goOn();
  /// Until there is more to take, and no longer than a moment.
  void wait();
  qint64 received() const { return received_; }
  /// 0 as long as it isn't known.
  qint64 announced() const;

 private:
  template <class Value>
  void set(CURLoption option, Value value) {
    curl_.setOption(request_, option, value);
  }
  void describe(const QString& address);
  void allow(const QString& address);
  void useProxy(const Proxy& proxy);
  void take(QByteArrayView bytes);
  void finish(CURLcode result) const;
  /// Called by the library, which no exception may travel through.
  static size_t receive(const char* bytes, size_t size, size_t count, void* transfer) noexcept;

  const CurlLibrary& curl_ = CurlLibrary::get();
  CURL* const request_ = curl_.makeRequest();
  CURLM* const queue_ = curl_.makeQueue();
  const cSHAREDInternet& internet_;
  Sink sink_;
  qint64 mostBytes_;
  qint64 received_ = 0;
  std::exception_ptr failure_;
  std::array<char, CURL_ERROR_SIZE> why_{};
};

cSHAREDInternet::Transfer::Transfer(const cSHAREDInternet& internet, const QString& address, qint64 mostBytes,
                                    Sink sink)
    : internet_(internet), sink_(std::move(sink)), mostBytes_(mostBytes) {
  describe(address);
  allow(address);
  useProxy(internet.proxy_);
  curl_.add(queue_, request_);
}

cSHAREDInternet::Transfer::~Transfer() {
  curl_.remove(queue_, request_);
  curl_.freeRequest(request_);
  curl_.freeQueue(queue_);
}

void cSHAREDInternet::Transfer::describe(const QString& address) {
  const QByteArray url = address.toUtf8();
  set(CURLOPT_URL, url.constData());
  set(CURLOPT_FAILONERROR, 1L);
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_ERRORBUFFER, why_.data());
  set(CURLOPT_WRITEFUNCTION, &Transfer::receive);
  set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

void cSHAREDInternet::Transfer::allow(const QString& address) {
  const bool isSecure = address.startsWith(u"https:"_s, Qt::CaseInsensitive);
  set(CURLOPT_PROTOCOLS_STR, "http,https,ftp");
  set(CURLOPT_REDIR_PROTOCOLS_STR, isSecure ? "https" : "http,https");
  set(CURLOPT_FOLLOWLOCATION, internet_.MayBeSentElsewhere ? 1L : 0L);
  set(CURLOPT_MAXREDIRS, kMostRedirections);
}

void cSHAREDInternet::Transfer::useProxy(const Proxy& proxy) {
  if (proxy.type == Proxy::System) {
    return;
  }
  // An empty name keeps the library from looking for the system's.
  const bool isNamed = proxy.type == Proxy::Named;
  set(CURLOPT_PROXY, isNamed ? proxy.server.constData() : "");
  if (isNamed && !proxy.user.isEmpty()) {
    set(CURLOPT_PROXYUSERNAME, proxy.user.constData());
    set(CURLOPT_PROXYPASSWORD, proxy.password.constData());
  }
}

size_t cSHAREDInternet::Transfer::receive(const char* bytes, size_t size, size_t count, void* transfer) noexcept {
  auto& self = *static_cast<Transfer*>(transfer);
  try {
    self.take(QByteArrayView(bytes, static_cast<qsizetype>(size * count)));
    return size * count;
  } catch (...) {
    self.failure_ = std::current_exception();
    return 0;
  }
}

void cSHAREDInternet::Transfer::take(QByteArrayView bytes) {
  received_ += bytes.size();
  if (received_ > mostBytes_ || announced() > mostBytes_) {
    fail(u"The file is too long"_s);
  }
  sink_(bytes);
}

qint64 cSHAREDInternet::Transfer::announced() const {
  curl_off_t length = 0;
  curl_.getInfo(request_, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
  return std::max<qint64>(length, 0);
}

bool cSHAREDInternet::Transfer::goOn() {
  int running = 0;
  curl_.perform(queue_, &running);
  int waiting = 0;
  if (const CURLMsg* const told = curl_.readInfo(queue_, &waiting); told != nullptr) {
    finish(told->data.result);
    return false;
  }
  return true;
}

void cSHAREDInternet::Transfer::wait() {
  curl_.poll(queue_, nullptr, 0, kPauseMs, nullptr);
}

void cSHAREDInternet::Transfer::finish(CURLcode result) const {
  if (failure_) {
    std::rethrow_exception(failure_);
  }
  if (result != CURLE_OK) {
    fail(QString::fromUtf8(why_.front() != '\0' ? why_.data() : curl_.describe(result)));
  }
  constexpr long kSentElsewhere = 300;
  constexpr long kSentElsewhereEnd = 400;
  long reply = 0;
  curl_.getInfo(request_, CURLINFO_RESPONSE_CODE, &reply);
  if (reply >= kSentElsewhere && reply < kSentElsewhereEnd) {
    fail(u"The server sends to another address"_s);
  }
}

void cSHAREDInternet::ApplyProxy() {
  const auto text = [](const QString& key) { return Settings().sGet(key).toString().trimmed(); };
  proxy_ = {};
  proxy_.type = static_cast<qint16>(Numbers::ToInt(Settings().sGet(u"ProxyType"_s, qint16{Proxy::System})));
  const QString server = text(u"ProxyServer"_s);
  const QString port = text(u"ProxyPort"_s);
  if (proxy_.type != Proxy::Named) {
    return;
  }
  proxy_.server = (server.isEmpty() || port.isEmpty() ? server : server + u':' + port).toUtf8();
  Logging().LogEvent(u"Proxy set to: "_s + QString::fromUtf8(proxy_.server));
  proxy_.user = text(u"ProxyUser"_s).toUtf8();
  proxy_.password = cSharedDecrypt::Decrypt(Settings().sGet(u"ProxyPwd"_s).toString()).toUtf8();
  if (!proxy_.user.isEmpty()) {
    Logging().LogEvent(u"Proxy username/password set"_s);
  }
}

void cSHAREDInternet::tell(const QString& status) const {
  Logging().LogEvent(status);
  if (Status) {
    Status(status);
  }
}

template <class Fetch>
bool cSHAREDInternet::run(const QString& address, Fetch&& fetch) {
  if (std::exchange(running_, true)) {
    return false;
  }
  cancelled_ = false;
  expected_ = 0;
  Logging().LogEvent(u"Trying to download "_s + address);
  const bool fetched = Guard("GetFile", "cSHAREDInternet")(fetch);
  running_ = false;
  tell(cancelled_ ? u"Download cancelled"_s : fetched ? u"Response Completed"_s : u"Error"_s);
  return fetched && !cancelled_;
}

bool cSHAREDInternet::GetFile(const QString& Address, const QString& LocalFile) {
  return run(Address, [&] { fetch(Address, LocalFile); });
}

QString cSHAREDInternet::OpenURL(const QString& Address) {
  QByteArray text;
  return run(Address, [&] { fetchText(Address, text); }) ? WholeText::fromBytes(text) : QString();
}

void cSHAREDInternet::fetch(const QString& address, const QString& file) {
  if (address.isEmpty()) {
    fail(u"No address specified"_s);
  }
  ReplacementFile replacement(Paths::native(file));
  Transfer transfer(*this, address, MostBytes, [&replacement](QByteArrayView bytes) { replacement.write(bytes); });
  follow(transfer);
  if (!cancelled_) {
    replacement.commit(ReplacementFile::Durability::OnDisk);
  }
}

void cSHAREDInternet::fetchText(const QString& address, QByteArray& text) {
  if (address.isEmpty()) {
    fail(u"No address specified"_s);
  }
  Transfer transfer(*this, address, kMostOfText, [&text](QByteArrayView bytes) { text.append(bytes); });
  follow(transfer);
}

// A window that opens while this yields doesn't let it go on until it is closed: the timer does, under that.
void cSHAREDInternet::follow(Transfer& transfer) {
  tell(u"Connecting"_s);
  std::exception_ptr failure;
  Steps steps{transfer, 0, Clock::ticks()};
  bool isRunning = true;
  const auto goOn = [&] {
    try {
      isRunning = isRunning && !cancelled_ && step(steps);
    } catch (...) {
      failure = std::current_exception();
      isRunning = false;
    }
  };
  QTimer underWindows;
  underWindows.callOnTimeout(goOn);
  underWindows.start(kUnderWindowsMs);
  for (goOn(); isRunning; goOn()) {
    transfer.wait();
    toolkit().DoEvents();
  }
  if (failure) {
    std::rethrow_exception(failure);
  }
}

bool cSHAREDInternet::step(Steps& steps) {
  const bool isRunning = steps.transfer.goOn();
  if (steps.transfer.received() != steps.told) {
    if (steps.told == 0) {
      tell(u"Receiving Response"_s);
    }
    steps.told = steps.transfer.received();
    steps.last = Clock::ticks();
    expected_ = steps.transfer.announced();
    if (Progress) {
      Progress(steps.told);
    }
  } else if (isRunning && Clock::ticks() - steps.last > TimeoutMs) {
    fail(u"Transfer timed out"_s);
  }
  return isRunning;
}
