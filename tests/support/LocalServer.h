#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

/// A server on this machine, with a thread of its own in which it answers one connection after another. What an answer
/// leaves open stays so until the end.
class LocalServer {
 public:
  using Answer = std::function<void(QTcpSocket&)>;
  using Listen = std::function<std::unique_ptr<QTcpServer>()>;
  /// Between two looks at whether it is to end.
  static constexpr int kLookMs = 20;

  explicit LocalServer(Answer answer, Listen listen = &std::make_unique<QTcpServer>)
      : answer_(std::move(answer)), listen_(std::move(listen)), thread_([this] { serve(); }) {
    while (port_ == 0 && !ends_) {
      std::this_thread::yield();
    }
  }
  ~LocalServer() { end(); }
  LocalServer(const LocalServer&) = delete;
  LocalServer& operator=(const LocalServer&) = delete;

  quint16 port() const { return port_; }
  bool ends() const { return ends_; }
  /// Comes back when nobody is served any more.
  void end() {
    ends_ = true;
    if (thread_.joinable()) {
      thread_.join();
    }
  }

  static bool isOpen(const QTcpSocket& socket) { return socket.state() == QAbstractSocket::ConnectedState; }
  /// Sends what is left to be sent and closes.
  static void close(QTcpSocket& socket) {
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState) {
      socket.waitForDisconnected();
    }
  }

 private:
  void serve() {
    const std::unique_ptr<QTcpServer> server = listen_();
    // Without a loopback nobody waits for it.
    ends_ = ends_ || !server->listen(QHostAddress::LocalHost);
    port_ = server->serverPort();
    while (!ends_) {
      server->waitForNewConnection(kLookMs);
      // One wait may have let several in, and the next one waits for further ones alone.
      while (server->hasPendingConnections() && !ends_) {
        answer_(*server->nextPendingConnection());
      }
    }
  }

  const Answer answer_;
  const Listen listen_;
  std::atomic<quint16> port_ = 0;
  std::atomic<bool> ends_ = false;
  std::thread thread_;
};
