#pragma once

#include "support/LocalServer.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <utility>

/// An FTP server on this machine with one file for everybody. It keeps what was told to it.
class FtpServer {
 public:
  explicit FtpServer(QByteArray file) : file_(std::move(file)) {}

  QString address(const QString& path) const {
    return QStringLiteral("FTP://127.0.0.1:%1%2").arg(server_.port()).arg(path);
  }
  /// All that was told, once nobody is served any more.
  QStringList end() {
    server_.end();
    return told_;
  }

 private:
  static void say(QTcpSocket& socket, const QByteArray& line) {
    socket.write(line + "\r\n");
    socket.waitForBytesWritten();
  }
  void talk(QTcpSocket& socket) {
    QTcpServer passive;
    passive.listen(QHostAddress::LocalHost);
    say(socket, "220 Ready");
    while (LocalServer::isOpen(socket) && !server_.ends()) {
      if (!socket.canReadLine() && !socket.waitForReadyRead(LocalServer::kLookMs)) {
        continue;
      }
      const QString told = QString::fromLatin1(socket.readLine()).trimmed();
      told_.append(told);
      const QString command = told.section(u' ', 0, 0);
      if (command == u"EPSV") {
        say(socket, "229 Extended (|||" + QByteArray::number(passive.serverPort()) + "|)");
      } else if (command == u"SIZE") {
        say(socket, "213 " + QByteArray::number(file_.size()));
      } else if (command == u"PWD") {
        say(socket, "257 \"/\"");
      } else if (command == u"RETR") {
        send(socket, passive);
      } else {
        say(socket, command == u"USER" ? "230 Welcome" : "250 Done");
      }
    }
  }
  void send(QTcpSocket& socket, QTcpServer& passive) {
    say(socket, "150 Here it comes");
    // Whoever asks for a file and doesn't fetch it isn't waited for.
    while (!passive.waitForNewConnection(LocalServer::kLookMs)) {
      if (server_.ends()) {
        return;
      }
    }
    const std::unique_ptr<QTcpSocket> data(passive.nextPendingConnection());
    data->write(file_);
    LocalServer::close(*data);
    say(socket, "226 All of it");
  }

  const QByteArray file_;
  QStringList told_;
  LocalServer server_{[this](QTcpSocket& socket) { talk(socket); }};
};
