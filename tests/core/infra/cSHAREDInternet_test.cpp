#include "core/infra/cSHAREDInternet.h"

#include "core/infra/cSHAREDSettings.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"
#include "support/WebServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMost = 100'000;
const QByteArray kOld = "what stood there before";

class Internet : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(write(kOld)); }

  bool write(const QByteArray& bytes) const {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
  }
  QByteArray content() const {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  /// Nothing is left beside the file.
  qsizetype files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(); }

  ScriptedToolkit toolkit;
  ScratchFolder folder;
  const QString path = folder.path(u"list.zip"_s);
  cSHAREDInternet internet;
};

TEST_F(Internet, AFileIsTakenWholeAndItsProgressTold) {
  const QByteArray body(90'000, 'z');
  const WebServer server({{u"/list.zip"_s, WebServer::ok(body)},
                          {u"/moved"_s, WebServer::moved("/list.zip")},
                          {u"/unannounced"_s, "HTTP/1.1 200 OK\r\n\r\n" + body},
                          {u"/empty"_s, WebServer::ok({})}});
  internet.MostBytes = kMost;
  qint64 last = 0;
  internet.Progress = [&last](qint64 received) {
    EXPECT_GT(received, last);
    last = received;
  };
  for (const auto& [from, expected] :
       {std::pair{u"/list.zip"_s, body.size()}, {u"/moved"_s, body.size()}, {u"/unannounced"_s, qsizetype{0}}}) {
    last = 0;
    ASSERT_TRUE(write(kOld));
    EXPECT_TRUE(internet.GetFile(server.address(from), path)) << from.toStdString();
    EXPECT_EQ(content(), body) << from.toStdString();
    EXPECT_EQ(internet.ExpectedFilesize(), expected) << from.toStdString();
    EXPECT_EQ(last, body.size());
  }
  EXPECT_TRUE(internet.GetFile(server.address(u"/empty"_s), path));
  EXPECT_EQ(content(), QByteArray());
  EXPECT_GT(toolkit.yields, 0);
}

TEST_F(Internet, AFailedTransferLeavesWhatStoodThere) {
  const QByteArray tooLong(kMost + 1, 'z');
  const WebServer server({{u"/short"_s, WebServer::ok("zz", 3)},
                          {u"/long"_s, WebServer::ok(tooLong)},
                          {u"/endless"_s, "HTTP/1.1 200 OK\r\n\r\n" + tooLong},
                          {u"/gone"_s, "HTTP/1.1 404 Not Found\r\nContent-Length: 4\r\n\r\nGone"},
                          {u"/circle"_s, WebServer::moved("/circle")},
                          {u"/file"_s, WebServer::moved("file://" + path.toUtf8())},
                          {u"/nonsense"_s, "\r\n\r\n"}});
  internet.MostBytes = kMost;
  internet.TimeoutMs = 50;
  QStringList addresses = {u""_s, u"ftp://127.0.0.1/list.zip"_s, QString(u"file://"_s + path), u"http://"_s};
  for (const QString& from :
       {u"/short"_s, u"/long"_s, u"/endless"_s, u"/gone"_s, u"/circle"_s, u"/file"_s, u"/nonsense"_s, u"/silent"_s}) {
    addresses += server.address(from);
  }
  for (const QString& address : addresses) {
    EXPECT_FALSE(internet.GetFile(address, path)) << address.toStdString();
    EXPECT_EQ(content(), kOld) << address.toStdString();
    EXPECT_EQ(files(), 1) << address.toStdString();
  }
}

TEST_F(Internet, AFileThatCannotBeWrittenFails) {
  const WebServer server({{u"/list.zip"_s, WebServer::ok("zip")}});
  EXPECT_FALSE(internet.GetFile(server.address(u"/list.zip"_s), folder.path(u"none/list.zip"_s)));
  EXPECT_TRUE(internet.GetFile(server.address(u"/list.zip"_s), path)) << "the next one is a new beginning";
}

TEST_F(Internet, AFileGoesOnComingUnderAWindowThatIsUpMeanwhile) {
  const QByteArray body(90'000, 'z');
  const WebServer server({{u"/list.zip"_s, WebServer::ok(body)}});
  qint64 received = 0;
  internet.Progress = [&](qint64 sofar) { received = sofar; };
  bool came = false;
  toolkit.onYield = [&] {
    const QDeadlineTimer limit(10'000);
    while (received < body.size() && !limit.hasExpired()) {
      QCoreApplication::processEvents();
    }
    came = received == body.size();
  };
  EXPECT_TRUE(internet.GetFile(server.address(u"/list.zip"_s), path));
  EXPECT_TRUE(came);
  EXPECT_EQ(content(), body);
}

TEST_F(Internet, ATextIsTakenByTheProxyOfTheSettings) {
  const WebServer server({{u"/text"_s, WebServer::ok("4.0.90\r\nnext")},
                          {u"/long"_s, WebServer::ok(QByteArray(cSHAREDInternet::kMostOfText + 1, 'z'))},
                          {u"/moved"_s, WebServer::moved("/text")},
                          {u"http://nowhere.invalid/text"_s, WebServer::ok("by the proxy")}});
  EXPECT_EQ(internet.OpenURL(server.address(u"/text"_s)), u"4.0.90\r\nnext"_s);
  EXPECT_EQ(internet.OpenURL(server.address(u"/moved"_s)), u"4.0.90\r\nnext"_s);
  for (const QString& none : {server.address(u"/long"_s), u"http://nowhere.invalid/text"_s, u""_s}) {
    EXPECT_EQ(internet.OpenURL(none), QString()) << none.toStdString();
  }
  internet.MayBeSentElsewhere = false;
  EXPECT_EQ(internet.OpenURL(server.address(u"/moved"_s)), QString());
  Settings().sSet(u"ProxyType"_s, 2);
  Settings().sSet(u"ProxyServer"_s, u"127.0.0.1"_s);
  Settings().sSet(u"ProxyPort"_s, server.address({}).section(u':', -1));
  internet.ApplyProxy();
  EXPECT_EQ(internet.OpenURL(u"http://nowhere.invalid/text"_s), u"by the proxy"_s);
  Settings().DeleteAllSettings();
}

TEST_F(Internet, ACancelledTransferEndsAtOnceAndOneRunsAtATime) {
  const WebServer server({});
  bool second = true;
  toolkit.onYield = [&] {
    second = internet.GetFile(server.address(u"/silent"_s), path);
    internet.Cancel();
  };
  EXPECT_FALSE(internet.GetFile(server.address(u"/silent"_s), path));
  EXPECT_FALSE(second);
  EXPECT_EQ(content(), kOld);
  EXPECT_EQ(files(), 1);
}

}  // namespace
