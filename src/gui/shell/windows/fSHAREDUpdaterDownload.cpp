// The download of the installer.

#include "core/infra/InstallerFile.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "gui/shell/windows/fSHAREDUpdater.h"

#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QScopeGuard>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPercent = 100;
constexpr qint64 kKilobyte = 1024;

/// What a download is saved as; empty when its address names no file, or one that a folder wouldn't show.
QString fileNameOf(const QString& address) {
  QString name = QUrl(address).fileName(QUrl::FullyDecoded);
  Files().CleanString(name);
  return name.startsWith(u'.') ? QString() : name;
}

}  // namespace

QString fSHAREDUpdater::trustedAddress() const {
  const QString versionFile = UpdateAddress::versionFile();
  QString address = UpdateAddress::installer(versionFile, newest_.download);
  if (address.isEmpty()) {
    toolkit().MsgBox(translated(u"The installer is not downloaded. Only one that comes from the update server itself "
                                "by a secure connection (HTTPS) can be trusted, and this one would come from:\n%1"_s)
                         .arg(UpdateAddress::whole(versionFile, newest_.download)));
  }
  return address;
}

bool fSHAREDUpdater::Download(Fetch fetch, const QString& address, const QString& path) {
  const QPointer<fSHAREDUpdater> form(this);
  // What fetches stays while the window goes.
  const std::shared_ptr<cSHAREDInternet> internet = internet_;
  ProgressBar1->setRange(0, 0);
  setState(State::Downloading);
  beginTransfer();
  // The windows go on meanwhile.
  toolkit().setPointer(Pointer::Background);
  const QString failure = [&] {
    const auto ended = qScopeGuard([&form] {
      toolkit().setPointer(Pointer::Normal);
      if (!form.isNull()) {
        form->running_ = false;
        form->setState(State::Available);
      }
    });
    return fetch(*internet, address, path);
  }();
  if (form.isNull()) {
    return false;
  }
  if (stopped_) {
    tellStatus(shownText(u"Download cancelled"_s));
  } else if (!failure.isEmpty()) {
    tellStatus(failure, why_);
  } else {
    ProgressBar1->setRange(0, kPercent);
    ProgressBar1->setValue(kPercent);
    ProgressBar1->show();
  }
  return failure.isEmpty() && !stopped_;
}

void fSHAREDUpdater::tellProgress(qint64 received) {
  if (state_ != State::Downloading) {
    return;
  }
  const qint64 expected = internet_->ExpectedFilesize();
  const QString kilobytes = QLocale().toString(received / kKilobyte);
  if (expected <= 0) {
    tellStatus(toldText(u"%1 kb downloaded"_s, {kilobytes}));
    return;
  }
  ProgressBar1->setRange(0, kPercent);
  ProgressBar1->setValue(static_cast<int>(received * kPercent / expected));
  tellStatus(received < expected ? toldText(u"%1 kb of %2 kb"_s, {kilobytes, QLocale().toString(expected / kKilobyte)})
                                 : toldText(u"%1 kb (%2)"_s, {kilobytes, u"100%"_s}));
}

void fSHAREDUpdater::cmdDownload_Click() {
  if (running_) {
    return;
  }
  const QString address = trustedAddress();
  if (address.isEmpty()) {
    return;
  }
  const QString name = fileNameOf(address);
  if (name.isEmpty()) {
    tellStatus(shownText(u"Update check failed, could not read download filename"_s));
    return;
  }
  const QString folder = toolkit().PickFolder(u"Download the update to"_s, Paths::documentsFolder());
  if (folder.isEmpty()) {
    return;
  }
  const QString path = Files().Combine(folder, name);
  if (Files().FileExists(path) &&
      toolkit().MsgBox(translated(u"%1 is there already. Do you want to replace it?"_s).arg(path),
                       Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  if (Download(&downloadInstaller, address, path)) {
    tellStatus(toldText(u"File saved to %1"_s, {path}));
  }
}

void fSHAREDUpdater::DownloadAndInstall() {
  if (running_) {
    return;
  }
  const QString address = trustedAddress();
  if (address.isEmpty()) {
    return;
  }
  Q_EMIT InstallerGone();
  if (!Download(&downloadOwnInstaller, address, Paths::programFolder() + u"Quillane4Upd.exe"_s)) {
    return;
  }
  const QPointer<fSHAREDUpdater> form(this);
  const QByteArray hash = internet_->Hash();
  // It comes up minutes later: what is typed elsewhere by then is no yes.
  const Answer answer =
      toolkit().MsgBox(u"The update has been downloaded. Do you want to install it now?"_s, Buttons::NoUnlessYes);
  if (!form.isNull() && answer == Answer::Yes) {
    Q_EMIT InstallFile(hash);
  }
}

void fSHAREDUpdater::StopAll() {
  stopped_ = running_;
  internet_->Cancel();
}
