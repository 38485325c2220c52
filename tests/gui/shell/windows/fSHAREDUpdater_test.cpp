// The check for a new version, by the menu and by itself, against a web server of this machine.

#include "gui/shell/windows/fSHAREDUpdater.h"

#include "core/infra/Clock.h"
#include "core/infra/InstallerFile.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedEncrypt.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/windows/fSHAREDProxy.h"
#include "support/Required.h"
#include "support/WaitFor.h"
#include "support/WebServer.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString kCurrent = u"/versions/Quillane4_current.txt"_s;
const QString kDetails = u"/versions/Quillane4_details.txt"_s;

class UpdaterTest : public ShellTest {
 protected:
  void startWithAddress(const QString& address, const QStringList& more = {u"AskedAboutAutoUpdates,-1"_s}) {
    writeSettings(more + QStringList{u"UpdateAddress,"_s + address});
    start(smallProject());
  }
  fSHAREDUpdater& updater() { return required(window().findChild<fSHAREDUpdater*>(), u"fSHAREDUpdater"_s); }
  template <class Control = QPushButton>
  Control& of(const char* name) {
    return childOf<Control>(updater(), QString::fromLatin1(name));
  }
  QString said() { return of<QLabel>("lblUpdate").text(); }
  QString status() { return of<QLabel>("lblStatus").text(); }
  /// The check of the menu against this reply; what the window says then.
  QString saidOf(const QByteArray& reply) {
    const WebServer server({{kCurrent, WebServer::ok(reply)}});
    Settings().sSet(u"UpdateAddress"_s, server.address({}));
    trigger("mnuCheckVersion");
    EXPECT_TRUE(updater().isVisible());
    return said();
  }
};

TEST_F(UpdaterTest, TheCheckOfTheMenuSaysWhatTheServerTells) {
  startWithAddress(u"http://127.0.0.1:9"_s);
  g_Project->Title = u"Changed"_s;
  window().ProjectChanged = true;
  EXPECT_EQ(saidOf("99.0.0a\r\nget@@@.exe"), u"Version 99.0.0A is available!"_s);
  EXPECT_FALSE(window().ProjectChanged) << "what is open is saved first";
  EXPECT_FALSE(of("cmdDownloadInstall").isHidden());
  EXPECT_FALSE(Settings().sGet(u"LastUpdateCheck"_s).toString().isEmpty());
  for (const auto& [reply, text] : {std::pair<QByteArray, QString>{"1.0.0\nx", u"You're up to date!"_s},
                                    {"99.0\nx", u"Could not read update status from file"_s},
                                    {"99.0.0\n", u"Update check failed, could not read download filename"_s},
                                    {"<html>Gone", u"Could not retrieve update status"_s},
                                    {"", u"Could not retrieve update status"_s}}) {
    EXPECT_TRUE(saidOf(reply).startsWith(text)) << reply.constData();
    EXPECT_TRUE(of("cmdDownloadInstall").isHidden()) << reply.constData();
    EXPECT_FALSE(of("cmdCheckAgain").isHidden());
  }
}

TEST_F(UpdaterTest, DetailsAreShownAndAnInstallerFromElsewhereRefused) {
  const WebServer server({{kCurrent, WebServer::ok("99.0.0\nget.exe")}, {kDetails, WebServer::ok("<b>Much\nis new")}});
  startWithAddress(server.address({}));
  trigger("mnuCheckVersion");
  of("cmdShowDetail").click();
  EXPECT_EQ(of<QPlainTextEdit>("txtDetail").toPlainText(), u"<b>Much\nis new"_s);
  EXPECT_TRUE(of<QPlainTextEdit>("txtDetail").isVisible());
  toolkit.expectBox(u"The installer is not downloaded."_s);
  of("cmdDownloadInstall").click();
  toolkit.expectFile(folder.path());
  toolkit.expectBox(u"The installer is not downloaded."_s);
  of("cmdDownload").click();
}

TEST_F(UpdaterTest, ACheckThatHangsIsStoppedByItsButtonAndTheEndOfTheProgram) {
  const WebServer server({});
  startWithAddress(server.address({}));
  for (const bool byButton : {true, false}) {
    toolkit.onYield = [&, byButton] { (byButton ? of("cmdCancel") : of("cmdClose")).click(); };
    trigger("mnuCheckVersion");
    EXPECT_TRUE(of("cmdCancel").isHidden());
    EXPECT_EQ(updater().isVisible(), byButton);
  }
}

TEST_F(UpdaterTest, TheCheckByItselfAsksOnceAndSpeaksOfANewVersionOnly) {
  const WebServer server({{kCurrent, WebServer::ok("99.0.0\nget.exe")}});
  startWithAddress(server.address({}), {});
  auto& timer = control<QTimer>("Timer3");
  toolkit.expectBox(u"Do you want to enable an automatic weekly check"_s, Answer::Yes);
  toolkit.expectBox(u"An update is available."_s, Answer::No);
  timer.setInterval(1);
  ASSERT_TRUE(soon([&] { return toolkit.boxes.size() == 2; }));
  EXPECT_FALSE(updater().isVisible());
  EXPECT_FALSE(updater().DoCheckNow());
  for (const auto& [last, due] : {std::pair{u"01/Jan/2020"_s, true}, {u"nonsense"_s, true}, {u""_s, true}}) {
    Settings().sSet(u"LastUpdateCheck"_s, last);
    EXPECT_EQ(updater().DoCheckNow(), due) << last.toStdString();
  }
  Settings().sSet(u"UpdateAddress"_s, u"http://127.0.0.1:9"_s);
  timer.start();
  ASSERT_TRUE(soon([&] { return !timer.isActive() && of("cmdCancel").isHidden(); }));
  EXPECT_FALSE(updater().isVisible()) << "a failure says nothing";
  EXPECT_FALSE(updater().NoAutoCheck());
  Settings().sSet(u"DisableAutoUpdateCheck"_s, true);
  EXPECT_TRUE(updater().NoAutoCheck());
}

TEST_F(UpdaterTest, WithoutAnAddressThereIsNoCheck) {
  writeSettings({u"BadWord0,very"_s});
  start(smallProject());
  EXPECT_FALSE(isShown("mnuCheckVersion"));
  auto& timer = control<QTimer>("Timer3");
  timer.setInterval(1);
  ASSERT_TRUE(soon([&] { return !timer.isActive(); }));
  EXPECT_EQ(window().findChild<fSHAREDUpdater*>(), nullptr);
}

TEST_F(UpdaterTest, AnInstallerIsKeptWholeOnly) {
  startWith(smallProject());
  const WebServer server({{u"/whole"_s, WebServer::ok("MZ")},
                          {u"/page"_s, WebServer::ok("<Html>no such file")},
                          {u"/short"_s, WebServer::ok("MZ", 9)}});
  cSHAREDInternet internet;
  const QString path = folder.path(u"get.exe"_s);
  for (const auto& [from, told] : {std::pair{u"/whole"_s, u""_s},
                                   {u"/page"_s, u"Error - File not found on server."_s},
                                   {u"/short"_s, u"Error - Download failed."_s}}) {
    QFile::remove(path);
    EXPECT_EQ(downloadInstaller(internet, server.address(from), path), told) << from.toStdString();
    EXPECT_EQ(QFile::exists(path), told.isEmpty()) << from.toStdString();
  }
}

TEST_F(UpdaterTest, AProxyIsKeptUnlessItsPasswordWouldNotComeBack) {
  startWith(smallProject());
  fSHAREDProxy form(&window());
  const auto field = [&](const char* name) -> QLineEdit& {
    return childOf<QLineEdit>(form, QString::fromLatin1(name));
  };
  childOf<QRadioButton>(form, u"optNamed"_s).setChecked(true);
  field("txtServer").setText(u"proxy.example"_s);
  field("txtPwd").setText(u"p\u00E4ss"_s);
  toolkit.expectBox(u"Your passwords don't match.  Please retype them."_s);
  form.accept();
  field("txtPwdRepeat").setText(u"p\u00E4ss"_s);
  toolkit.expectBox(u"The password has letters that can't be kept."_s);
  form.accept();
  EXPECT_FALSE(Settings().IsSettingPresent(u"ProxyPwd"_s));
  for (const char* name : {"txtPwd", "txtPwdRepeat"}) {
    field(name).setText(u"<pass!"_s);
  }
  form.accept();
  EXPECT_EQ(Settings().sGet(u"ProxyType"_s).toInt(), 2);
  const QString path = folder.path(u"kept.ini"_s);
  Settings().SaveSettings(path);
  Settings().LoadSettings(path);
  EXPECT_EQ(cSharedDecrypt::Decrypt(Settings().sGet(u"ProxyPwd"_s).toString()), u"<pass!"_s);
}

}  // namespace
