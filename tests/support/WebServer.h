#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

/// A web server on this machine, with a thread of its own. Each request for a path gets the bytes that are held for it
/// and a closed connection; one for any other path gets no answer at all.
class WebServer {
 public:
  explicit WebServer(QHash<QString, QByteArray> replies) : replies_(std::move(replies)), thread_([this] { serve(); }) {
    // No proxy of this machine stands between.
    qputenv("no_proxy", "127.0.0.1");
    while (port_ == 0) {
      std::this_thread::yield();
    }
  }
  ~WebServer() {
    ends_ = true;
    thread_.join();
  }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  QString address(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(port_.load()).arg(path);
  }

  /// A whole answer: the body, or the first bytes of one that was announced as longer.
  static QByteArray ok(const QByteArray& body, qsizetype announced = -1) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(announced < 0 ? body.size() : announced) +
           "\r\n\r\n" + body;
  }
  static QByteArray moved(const QByteArray& to) {
    return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + to + "\r\n\r\n";
  }

 private:
  void serve() {
    constexpr int kLookMs = 20;
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port_ = server.serverPort();
    std::vector<std::unique_ptr<QTcpSocket>> silent;
    while (!ends_) {
      if (!server.waitForNewConnection(kLookMs)) {
        continue;
      }
      std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
      while (!socket->canReadLine() && socket->waitForReadyRead()) {
      }
      const auto reply = replies_.constFind(QString::fromLatin1(socket->readLine()).section(u' ', 1, 1));
      if (reply == replies_.constEnd()) {
        silent.push_back(std::move(socket));
        continue;
      }
      socket->write(*reply);
      socket->disconnectFromHost();
      if (socket->state() != QAbstractSocket::UnconnectedState) {
        socket->waitForDisconnected();
      }
    }
  }

  const QHash<QString, QByteArray> replies_;
  std::atomic<quint16> port_ = 0;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};
