#include "core/infra/WebTransfer.h"

#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Between two yields. Who goes on typing while a file comes doesn't feel it.
constexpr int kPauseMs = 5;
constexpr int kMostSentOn = 10;
constexpr long kFarewellSeconds = 5;

}  // namespace

QString textOf(TransferState state) {
  switch (state) {
    case TransferState::ResolvingHost:
      return shownText(u"Resolving Host"_s);
    case TransferState::HostResolved:
      return shownText(u"Host Resolved"_s);
    case TransferState::Connecting:
      return shownText(u"Connecting"_s);
    case TransferState::Connected:
      return shownText(u"Connected"_s);
    case TransferState::Requesting:
      return shownText(u"Requesting"_s);
    case TransferState::RequestSent:
      return shownText(u"Request Sent"_s);
    case TransferState::ReceivingResponse:
      return shownText(u"Receiving Response"_s);
    case TransferState::ResponseReceived:
      return shownText(u"Response Received"_s);
    case TransferState::Disconnecting:
      return shownText(u"Disconnecting"_s);
    case TransferState::Disconnected:
      return shownText(u"Disconnected"_s);
    case TransferState::Error:
      return shownText(u"Error"_s);
    case TransferState::ResponseCompleted:
      return shownText(u"Response Completed"_s);
    case TransferState::OtherResponse:
      break;
  }
  return shownText(u"Other response"_s);
}

WebTransfer::WebTransfer(WebRequest request, Sink sink) : request_(std::move(request)), sink_(std::move(sink)) {
  describe();
  watch();
  allow();
  useProxy(request_.proxy);
  curl_.add(queue_.get(), handle_.get());
}

WebTransfer::~WebTransfer() {
  curl_.remove(queue_.get(), handle_.get());
}

void WebTransfer::describe() {
  set(CURLOPT_URL, request_.address.toUtf8().constData());
  set(CURLOPT_FAILONERROR, 1L);
  set(CURLOPT_NOSIGNAL, 1L);
  // A name that is still being looked for isn't waited for when the transfer is given up.
  set(CURLOPT_QUICK_EXIT, 1L);
  set(CURLOPT_ERRORBUFFER, why_.data());
  set(CURLOPT_WRITEFUNCTION, &WebTransfer::onBytes);
  set(CURLOPT_WRITEDATA, static_cast<void*>(this));
  if (request_.address.startsWith(u"ftp"_s, Qt::CaseInsensitive)) {
    // The farewell is said with this request's own time-out, not at the end of the queue with the library's.
    set(CURLOPT_FORBID_REUSE, 1L);
  }
}

void WebTransfer::watch() {
  set(CURLOPT_RESOLVER_START_FUNCTION, &WebTransfer::onResolving);
  set(CURLOPT_SOCKOPTFUNCTION, &WebTransfer::onSocket);
  set(CURLOPT_PREREQFUNCTION, &WebTransfer::onConnected);
  set(CURLOPT_HEADERFUNCTION, &WebTransfer::onHeader);
  for (const CURLoption data :
       {CURLOPT_RESOLVER_START_DATA, CURLOPT_SOCKOPTDATA, CURLOPT_PREREQDATA, CURLOPT_HEADERDATA}) {
    set(data, static_cast<void*>(this));
  }
}

void WebTransfer::allow() {
  const bool isSecure = request_.address.startsWith(u"https:"_s, Qt::CaseInsensitive);
  mustSet(CURLOPT_PROTOCOLS_STR, "http,https,ftp");
  mustSet(CURLOPT_REDIR_PROTOCOLS_STR, isSecure ? "https" : "http,https");
  set(CURLOPT_FOLLOWLOCATION, request_.mayBeSentTo ? 0L : 1L);
  set(CURLOPT_MAXREDIRS, static_cast<long>(kMostSentOn));
  // The system's own certificates, and those that the person at this machine trusts besides, as in other programs.
  if (const QByteArray trusted = qgetenv("SSL_CERT_FILE"); !trusted.isEmpty()) {
    mustSet(CURLOPT_CAINFO, trusted.constData());
  }
}

void WebTransfer::useProxy(const WebProxy& proxy) {
  if (proxy.type == WebProxy::System) {
    return;
  }
  // An empty name keeps the library from looking for the system's.
  const bool isNamed = proxy.type == WebProxy::Named;
  set(CURLOPT_PROXY, isNamed ? proxy.server.constData() : "");
  // What the environment excepts is the system's proxy, not one that was named here.
  set(CURLOPT_NOPROXY, "");
  if (isNamed && !proxy.user.isEmpty()) {
    set(CURLOPT_PROXYUSERNAME, proxy.user.constData());
    set(CURLOPT_PROXYPASSWORD, proxy.password.constData());
  }
}

void WebTransfer::reach(TransferState state) {
  if (state != std::exchange(state_, state)) {
    states_.append(state);
  }
}

// FTP connects a second time for the file itself, which is no news.
int WebTransfer::onResolving(void*, void*, void* transfer) noexcept {
  auto& self = *static_cast<WebTransfer*>(transfer);
  if (!self.isConnected_) {
    self.reach(TransferState::ResolvingHost);
  }
  return 0;
}

int WebTransfer::onSocket(void* transfer, curl_socket_t, curlsocktype) noexcept {
  auto& self = *static_cast<WebTransfer*>(transfer);
  if (!self.isConnected_ && self.state_ != TransferState::Connecting) {
    self.reach(TransferState::HostResolved);
    self.reach(TransferState::Connecting);
  }
  return CURL_SOCKOPT_OK;
}

int WebTransfer::onConnected(void* transfer, char*, char*, int, int) noexcept {
  auto& self = *static_cast<WebTransfer*>(transfer);
  if (!std::exchange(self.isConnected_, true)) {
    self.reach(TransferState::Connected);
  }
  self.reach(TransferState::Requesting);
  return CURL_PREREQFUNC_OK;
}

size_t WebTransfer::onHeader(const char*, size_t size, size_t count, void* transfer) noexcept {
  auto& self = *static_cast<WebTransfer*>(transfer);
  self.isConnected_ ? self.answered() : self.reach(TransferState::OtherResponse);
  return size * count;
}

size_t WebTransfer::onBytes(const char* bytes, size_t size, size_t count, void* transfer) noexcept {
  auto& self = *static_cast<WebTransfer*>(transfer);
  try {
    self.take(QByteArrayView(bytes, static_cast<qsizetype>(size * count)));
    return size * count;
  } catch (...) {
    self.failure_ = std::current_exception();
    return 0;
  }
}

void WebTransfer::answered() {
  if (state_ == TransferState::Requesting) {
    reach(TransferState::RequestSent);
  }
  if (state_ == TransferState::RequestSent) {
    reach(TransferState::ReceivingResponse);
  }
}

void WebTransfer::take(QByteArrayView bytes) {
  if (isSentOn()) {
    return;
  }
  answered();
  reach(TransferState::ResponseReceived);
  received_ += bytes.size();
  const qint64 length = announced();
  const bool anyLength = request_.takesAnnounced && length > 0;
  if (!anyLength && std::max(received_, length) > request_.mostBytes) {
    throw TransferError(shownText(u"The file is too long"_s));
  }
  if (length > 0 && received_ >= length) {
    // All has come: what an FTP server says behind it is waited for while nothing else goes on.
    set(CURLOPT_SERVER_RESPONSE_TIMEOUT, kFarewellSeconds);
  }
  sink_(bytes);
}

qint64 WebTransfer::announced() const {
  curl_off_t length = 0;
  curl_.getInfo(handle_.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
  return std::max<qint64>(length, 0);
}

bool WebTransfer::goOn() {
  int running = 0;
  curl_.perform(queue_.get(), &running);
  long sent = 0;
  curl_.getInfo(handle_.get(), CURLINFO_REQUEST_SIZE, &sent);
  if (sent > 0 && state_ == TransferState::Requesting) {
    reach(TransferState::RequestSent);
  }
  int waiting = 0;
  const CURLMsg* const told = curl_.readInfo(queue_.get(), &waiting);
  if (told == nullptr) {
    return true;
  }
  check(told->data.result);
  if (isSentOn()) {
    sendOn();
    return true;
  }
  reach(TransferState::ResponseReceived);
  return false;
}

void WebTransfer::wait() {
  curl_.poll(queue_.get(), nullptr, 0, kPauseMs, nullptr);
}

bool WebTransfer::isSentOn() const {
  constexpr long kSentOn = 300;
  constexpr long kSentOnEnd = 400;
  long reply = 0;
  curl_.getInfo(handle_.get(), CURLINFO_RESPONSE_CODE, &reply);
  return reply >= kSentOn && reply < kSentOnEnd;
}

void WebTransfer::sendOn() {
  const char* to = nullptr;
  curl_.getInfo(handle_.get(), CURLINFO_REDIRECT_URL, &to);
  // What was looked at is what is asked for: another reader may find another host in the same letters.
  const QString address = request_.mayBeSentTo ? request_.mayBeSentTo(QString::fromUtf8(to)) : QString();
  if (address.isEmpty() || ++sentOn_ > kMostSentOn) {
    throw TransferError(shownText(u"The server sends to another address"_s));
  }
  curl_.remove(queue_.get(), handle_.get());
  set(CURLOPT_URL, address.toUtf8().constData());
  curl_.add(queue_.get(), handle_.get());
}

void WebTransfer::check(CURLcode result) const {
  if (failure_) {
    std::rethrow_exception(failure_);
  }
  if (result == CURLE_RECV_ERROR && received_ < announced()) {
    result = CURLE_PARTIAL_FILE;
  }
  const QString detail = QString::fromUtf8(why_.front() != '\0' ? why_.data() : curl_.describe(result));
  switch (result) {
    case CURLE_OK:
      return;
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT: {
      // Whoever has named one is connected with nothing else.
      const bool isProxy = result == CURLE_COULDNT_RESOLVE_PROXY || request_.proxy.type == WebProxy::Named;
      throw TransferError(isProxy ? shownText(u"The proxy server could not be reached"_s)
                                  : shownText(u"The server could not be reached"_s),
                          TransferError::Kind::Unreachable, detail);
    }
    case CURLE_PEER_FAILED_VERIFICATION:
      throw TransferError(shownText(u"The server's certificate could not be verified"_s), TransferError::Kind::Other,
                          detail);
    case CURLE_PARTIAL_FILE:
      throw TransferError(shownText(u"The connection ended too soon"_s), TransferError::Kind::CutShort, detail);
    case CURLE_HTTP_RETURNED_ERROR: {
      long code = 0;
      curl_.getInfo(handle_.get(), CURLINFO_RESPONSE_CODE, &code);
      throw TransferError(toldText(u"The server answered with error %1"_s, {QString::number(code)}));
    }
    default:
      throw TransferError(toldText(u"The transfer failed: %1"_s, {detail}));
  }
}
