#include "core/infra/cSHAREDInternet.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedEncrypt.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"

#include <QCryptographicHash>
#include <QScopeGuard>
#include <QTimer>
#include <QUrl>

#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUnderWindowsMs = 20;

/// For the log, which may be sent to others: without the name and the password that an address may hold.
QString withoutUser(const QString& address) {
  const QUrl url(address);
  const bool isRead = url.isValid() && !url.host().isEmpty();
  return isRead ? url.toString(QUrl::RemoveUserInfo | QUrl::FullyEncoded) : address.section(u'@', -1);
}

/// The colons of a bare IPv6 address aren't that of a port.
QString bracketed(const QString& server) {
  const QString host = server.section(u'@', -1);
  const bool isBare = host.count(u':') > 1 && !host.contains(u'[') && !host.contains(u"://"_s);
  return isBare ? server.chopped(host.size()) + u'[' + host + u']' : server;
}

}  // namespace

struct cSHAREDInternet::Steps {
  WebTransfer& transfer;
  /// How many bytes were told, and when it last got any further.
  qint64 told;
  qint64 last;
};

void cSHAREDInternet::ApplyProxy() {
  const auto text = [](const QString& key) { return Settings().sGet(key).toString().trimmed(); };
  proxy_ = {};
  proxy_.type = static_cast<qint16>(Numbers::ToInt(Settings().sGet(u"ProxyType"_s, qint16{WebProxy::System})));
  const QString server = bracketed(text(u"ProxyServer"_s));
  const QString port = text(u"ProxyPort"_s);
  if (proxy_.type != WebProxy::Named) {
    return;
  }
  proxy_.server = (server.isEmpty() || port.isEmpty() ? server : server + u':' + port).toUtf8();
  Logging().LogEvent(u"Proxy set to: "_s + QString::fromUtf8(proxy_.server).section(u'@', -1));
  proxy_.user = text(u"ProxyUser"_s).toUtf8();
  proxy_.password = cSharedDecrypt::Decrypt(Settings().sGet(u"ProxyPwd"_s).toString()).toUtf8();
  if (!proxy_.user.isEmpty()) {
    Logging().LogEvent(u"Proxy username/password set"_s);
  }
}

template <class Event, class... Arguments>
void cSHAREDInternet::raise(const Event& event, const Arguments&... arguments) const {
  if (event) {
    event(arguments...);
  }
}

void cSHAREDInternet::tell(TransferState state) {
  if (state == TransferState::Connected || state == TransferState::Disconnected) {
    connected_ = state == TransferState::Connected;
  }
  Logging().LogEvent(textOf(state));
  if (!SuppressAllButDLAndErrors && !SuppressAllButErrors) {
    raise(Status, textOf(state));
  }
}

void cSHAREDInternet::tellFailure(const std::exception_ptr& failure) {
  QString why;
  try {
    std::rethrow_exception(failure);
  } catch (const TransferError& error) {
    why = error.why();
    cutShort_ = error.kind() == TransferError::Kind::CutShort;
    if (error.kind() == TransferError::Kind::Unreachable) {
      raise(NoInternet);
    }
  } catch (const std::exception& error) {
    why = RuntimeError::of(error).description();
  }
  raise(DownloadError, why);
}

template <class Fetch>
bool cSHAREDInternet::run(const QString& address, Fetch&& fetch) {
  if (std::exchange(running_, true)) {
    return false;
  }
  cancelled_ = cutShort_ = false;
  expected_ = 0;
  hash_.clear();
  Logging().LogEvent(u"Trying to download "_s + withoutUser(address));
  std::exception_ptr failure;
  Guard("GetFile", "cSHAREDInternet")([&] {
    try {
      fetch();
    } catch (...) {
      failure = std::current_exception();
      throw;
    }
  });
  return finish(failure);
}

bool cSHAREDInternet::finish(const std::exception_ptr& failure) {
  const auto ended = qScopeGuard([this] { running_ = false; });
  if (connected_) {
    tell(TransferState::Disconnecting);
    tell(TransferState::Disconnected);
  }
  if (cancelled_) {
    Logging().LogEvent(u"Download cancelled"_s);
    if (!SuppressAllButErrors) {
      raise(DownloadCancelled);
    }
    return false;
  }
  tell(failure ? TransferState::Error : TransferState::ResponseCompleted);
  if (failure) {
    tellFailure(failure);
  } else if (!SuppressAllButErrors) {
    raise(DownloadFinished);
  }
  return !failure;
}

bool cSHAREDInternet::GetFile(const QString& Address, const QString& LocalFile) {
  return run(Address, [&] {
    ReplacementFile replacement(Paths::native(LocalFile));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    fetch({Address, MostBytes, true}, [&](QByteArrayView bytes) {
      replacement.write(bytes);
      hash.addData(bytes);
    });
    if (!cancelled_) {
      replacement.commit(ReplacementFile::Durability::OnDisk);
      hash_ = hash.result();
    }
  });
}

QString cSHAREDInternet::OpenURL(const QString& Address) {
  QByteArray text;
  const auto fetchText = [&] { fetch({Address, kMostOfText}, [&text](QByteArrayView bytes) { text.append(bytes); }); };
  return run(Address, fetchText) ? WholeText::fromBytes(text) : QString();
}

void cSHAREDInternet::fetch(WebRequest request, const WebTransfer::Sink& sink) {
  if (request.address.isEmpty()) {
    throw TransferError(shownText(u"No address specified"_s));
  }
  request.proxy = proxy_;
  request.mayBeSentTo = MayBeSentTo;
  WebTransfer transfer(std::move(request), sink);
  follow(transfer);
}

// A window that opens while this yields doesn't let it go on until it is closed: the timer does, under that.
void cSHAREDInternet::follow(WebTransfer& transfer) {
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
  std::exception_ptr failure;
  bool isRunning = false;
  try {
    isRunning = steps.transfer.goOn();
  } catch (...) {
    failure = std::current_exception();
  }
  // What it has got to is told before what then kept it from going on.
  const QList<TransferState> states = steps.transfer.takeStates();
  for (const TransferState state : states) {
    tell(state);
  }
  if (!states.isEmpty() || steps.transfer.received() != steps.told) {
    steps.last = Clock::ticks();
  }
  if (steps.transfer.received() != steps.told) {
    tellProgress(steps);
  }
  if (failure) {
    std::rethrow_exception(failure);
  }
  if (isRunning && Clock::ticks() - steps.last > TimeoutMs) {
    throw TransferError(shownText(u"Transfer timed out"_s));
  }
  return isRunning;
}

void cSHAREDInternet::tellProgress(Steps& steps) {
  const bool isFirst = steps.told == 0;
  steps.told = steps.transfer.received();
  expected_ = steps.transfer.announced();
  if (isFirst) {
    Logging().LogEvent(u"File size: "_s + QString::number(expected_));
  }
  if (SuppressAllButErrors) {
    return;
  }
  if (isFirst) {
    raise(Receiving);
  }
  raise(Progress, steps.told);
}
