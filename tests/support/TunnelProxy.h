#pragma once

#include "support/LocalServer.h"

#include <QByteArray>
#include <QString>

#include <atomic>

/// A proxy on this machine through which secure servers are reached by who knows the password. One tunnel at a time.
class TunnelProxy {
 public:
  /// What lets in: "name:password".
  explicit TunnelProxy(const QByteArray& entry) : entry_(entry.toBase64()) {}

  QString port() const { return QString::number(server_.port()); }
  int tunnels() const { return tunnels_; }

 private:
  void answer(QTcpSocket& client) {
    QByteArray head;
    while (!head.contains("\r\n\r\n") && LocalServer::isOpen(client) && !server_.ends()) {
      client.waitForReadyRead(LocalServer::kLookMs);
      head += client.readAll();
    }
    if (!head.contains("Proxy-Authorization: Basic " + entry_)) {
      client.write(
          "HTTP/1.1 407 Who are you\r\nProxy-Authenticate: Basic realm=\"r\"\r\nContent-Length: 4\r\n\r\nNone");
      LocalServer::close(client);
      return;
    }
    const QList<QByteArray> place = head.split(' ').value(1).split(':');
    QTcpSocket there;
    there.connectToHost(QString::fromLatin1(place.value(0)), place.value(1).toUShort());
    there.waitForConnected();
    ++tunnels_;
    client.write("HTTP/1.1 200 Connected\r\n\r\n");
    while (LocalServer::isOpen(client) && LocalServer::isOpen(there) && !server_.ends()) {
      pass(client, there);
      pass(there, client);
    }
    pass(there, client);
    LocalServer::close(client);
  }
  static void pass(QTcpSocket& from, QTcpSocket& to) {
    from.waitForReadyRead(1);
    to.write(from.readAll());
    to.flush();
  }

  const QByteArray entry_;
  std::atomic<int> tunnels_ = 0;
  LocalServer server_{[this](QTcpSocket& client) { answer(client); }};
};
