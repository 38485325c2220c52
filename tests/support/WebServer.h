#pragma once

#include "support/LocalServer.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QSslKey>
#include <QSslSocket>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

/// A web server on this machine. Each request for a path gets the bytes that are held for it
/// and a closed connection; one for any other path gets no answer at all.
class WebServer {
 public:
  enum class Kind { Plain, Secure };

  struct Reply {
    Reply(QByteArray all) : bytes(std::move(all)) {}
    Reply(const char* all) : bytes(all) {}
    QByteArray bytes;
    /// The connection stays as it is behind these bytes.
    bool isHeld = false;
    /// More than 0: they come in ten pieces, with so long a silence behind each.
    int pauseMs = 0;
  };

  explicit WebServer(QHash<QString, Reply> replies, Kind kind = Kind::Plain)
      : replies_(std::move(replies)), kind_(kind) {}

  QString address(const QString& path) const {
    const QString scheme = kind_ == Kind::Secure ? QStringLiteral("https") : QStringLiteral("http");
    return QStringLiteral("%1://127.0.0.1:%2%3").arg(scheme).arg(server_.port()).arg(path);
  }
  /// The heads of all requests so far.
  QStringList asked() const {
    const std::scoped_lock lock(mutex_);
    return asked_;
  }

  /// What a secure server shows for itself; nobody vouches for it but this file.
  static QString certificateFile() { return QStringLiteral(QUILLANE_SOURCE_DIR "/tests/support/TestServer.pem"); }

  /// A whole answer: the body, or the first bytes of one that was announced as longer.
  static QByteArray ok(const QByteArray& body, qsizetype announced = -1) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(announced < 0 ? body.size() : announced) +
           "\r\n\r\n" + body;
  }
  /// Says that the connection ends: a client gives up where it has found too many dead that it kept for the next
  /// request.
  static QByteArray moved(const QByteArray& to) {
    return "HTTP/1.1 302 Found\r\nContent-Length: 5\r\nConnection: close\r\nLocation: " + to + "\r\n\r\nMoved";
  }
  /// The first bytes of a longer answer whose rest never comes.
  static Reply held(const QByteArray& bytes) {
    Reply reply(bytes);
    reply.isHeld = true;
    return reply;
  }
  static Reply trickling(const QByteArray& bytes, int pauseMs) {
    Reply reply(bytes);
    reply.pauseMs = pauseMs;
    return reply;
  }

 private:
  class Listener : public QTcpServer {
   public:
    explicit Listener(Kind kind) : kind_(kind) {}

   protected:
    void incomingConnection(qintptr descriptor) override {
      auto* const socket = new QSslSocket(this);
      socket->setSocketDescriptor(descriptor);
      if (kind_ == Kind::Secure) {
        QFile key(certificateFile());
        key.open(QIODevice::ReadOnly);
        socket->setLocalCertificate(certificateFile());
        socket->setPrivateKey(QSslKey(&key, QSsl::Ec));
        socket->startServerEncryption();
        // Whoever refuses the certificate isn't waited for.
        if (!socket->waitForEncrypted()) {
          socket->abort();
        }
      }
      addPendingConnection(socket);
    }

   private:
    const Kind kind_;
  };

  static void send(QTcpSocket& socket, const Reply& reply) {
    constexpr qsizetype kPieces = 10;
    const qsizetype step = reply.pauseMs > 0 ? reply.bytes.size() / kPieces + 1 : reply.bytes.size();
    for (qsizetype at = 0; at < reply.bytes.size(); at += step) {
      socket.write(reply.bytes.mid(at, step));
      socket.flush();
      std::this_thread::sleep_for(std::chrono::milliseconds(reply.pauseMs));
    }
  }
  void answer(QTcpSocket& socket) {
    QByteArray head;
    while (!head.contains("\r\n\r\n") && LocalServer::isOpen(socket) && !server_.ends()) {
      if (!socket.waitForReadyRead(LocalServer::kLookMs) && socket.error() != QAbstractSocket::SocketTimeoutError) {
        break;
      }
      head += socket.readAll();
    }
    {
      const std::scoped_lock lock(mutex_);
      asked_.append(QString::fromLatin1(head));
    }
    const auto reply = replies_.constFind(QString::fromLatin1(head).section(u' ', 1, 1));
    if (reply != replies_.constEnd()) {
      send(socket, *reply);
    }
    // Who didn't even ask has hung up.
    if (!head.isEmpty() && (reply == replies_.constEnd() || reply->isHeld)) {
      return;
    }
    LocalServer::close(socket);
  }

  const QHash<QString, Reply> replies_;
  const Kind kind_;
  mutable std::mutex mutex_;
  QStringList asked_;
  LocalServer server_{[this](QTcpSocket& socket) { answer(socket); },
                      [this] { return std::make_unique<Listener>(kind_); }};
};
