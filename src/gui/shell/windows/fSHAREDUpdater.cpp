#include "gui/shell/windows/fSHAREDUpdater.h"

#include "core/infra/Clock.h"
#include "core/infra/CurlLibrary.h"
#include "core/infra/DateFormat.h"
#include "core/infra/Guard.h"
#include "core/infra/InstallerFile.h"
#include "core/infra/Maker.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "gui/shell/windows/fSHAREDProxy.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "fSHAREDUpdater";
constexpr int kPercent = 100;
constexpr qint64 kKilobyte = 1024;
constexpr int kLetters = 60;

const QString kDisabled = u"DisableAutoUpdateCheck"_s;
const QString kAsked = u"AskedAboutAutoUpdates"_s;
const QString kLastCheck = u"LastUpdateCheck"_s;

bool isSet(const QString& key) {
  return Settings().sGetWD(key, 0).toInt() != 0;
}

}  // namespace

fSHAREDUpdater::fSHAREDUpdater(QWidget* parent)
    : QDialog(parent),
      internet_(std::make_shared<cSHAREDInternet>()),
      lblProgram(makeLabel(u"lblProgram"_s, {}, this)),
      lblUpdate(makeLabel(u"lblUpdate"_s, {}, this)),
      lblStatus(makeLabel(u"lblStatus"_s, {}, this)),
      ProgressBar1(new QProgressBar(this)),
      txtDetail(makeReadOnlyText(u"txtDetail"_s, u"What is new"_s, this)),
      chkDisableAutoUpdate(new QCheckBox(u"Don't check for new versions &automatically"_s, this)),
      cmdCheckAgain(makeButton(u"cmdCheckAgain"_s, u"Check a&gain"_s, this)),
      cmdShowDetail(makeButton(u"cmdShowDetail"_s, u"&Show details"_s, this)),
      cmdDownload(makeButton(u"cmdDownload"_s, u"&Download..."_s, this)),
      cmdDownloadInstall(makeButton(u"cmdDownloadInstall"_s, u"Download and &install"_s, this)),
      cmdCancel(makeButton(u"cmdCancel"_s, u"S&top"_s, this)),
      cmdProxy(makeButton(u"cmdProxy"_s, u"&Proxy..."_s, this)),
      cmdClose(makeButton(u"cmdClose"_s, u"&Close"_s, this)) {
  setObjectName(u"fSHAREDUpdater"_s);
  setWindowTitle(u"Check for new version"_s);
  buildLayout();
  connectSignals();
  setState(State::Idle);
}

fSHAREDUpdater::~fSHAREDUpdater() {
  // A transfer that waits below ends by itself and finds nobody to tell.
  internet_->Cancel();
  internet_->Status = nullptr;
  internet_->Progress = nullptr;
}

void fSHAREDUpdater::buildLayout() {
  constexpr int kDetailLines = 10;
  QFont bold = lblProgram->font();
  bold.setBold(true);
  lblProgram->setFont(bold);
  for (QLabel* label : {lblUpdate, lblStatus}) {
    label->setWordWrap(true);
    label->setMinimumWidth(fontMetrics().averageCharWidth() * kLetters);
  }
  giveName(*ProgressBar1, u"ProgressBar1"_s, u"Download"_s);
  ProgressBar1->setRange(0, kPercent);
  giveName(*chkDisableAutoUpdate, u"chkDisableAutoUpdate"_s);
  txtDetail->setMinimumHeight(txtDetail->fontMetrics().lineSpacing() * kDetailLines);
  auto* const offers = new QHBoxLayout;
  for (QPushButton* button : {cmdShowDetail, cmdDownload, cmdDownloadInstall}) {
    offers->addWidget(button);
  }
  offers->addStretch();
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(cmdProxy);
  buttons->addStretch();
  for (QPushButton* button : {cmdCheckAgain, cmdCancel, cmdClose}) {
    buttons->addWidget(button);
  }
  auto* const column = new QVBoxLayout(this);
  column->addWidget(lblProgram);
  column->addWidget(lblUpdate);
  column->addLayout(offers);
  column->addWidget(txtDetail, 1);
  column->addWidget(ProgressBar1);
  column->addWidget(lblStatus);
  column->addStretch();
  column->addWidget(chkDisableAutoUpdate);
  column->addLayout(buttons);
  txtDetail->hide();
  cmdClose->setDefault(true);
}

void fSHAREDUpdater::connectSignals() {
  internet_->Progress = [this](qint64 received) { tellProgress(received); };
  const auto clicked = [this](QPushButton* button, const char* routine, auto slot) {
    connect(button, &QPushButton::clicked, this, guarded(routine, kModule, slot));
  };
  clicked(cmdCheckAgain, "cmdCheckAgain_Click", [this] { CheckForUpdate(false); });
  clicked(cmdShowDetail, "cmdShowDetail_Click", [this] { cmdShowDetail_Click(); });
  clicked(cmdDownload, "cmdDownload_Click", [this] { cmdDownload_Click(); });
  clicked(cmdDownloadInstall, "cmdDownloadInstall_Click", [this] { DownloadAndInstall(); });
  clicked(cmdCancel, "cmdCancel_Click", [this] { StopAll(); });
  clicked(cmdProxy, "cmdProxy_Click", [this] { fSHAREDProxy::showOver(*this); });
  clicked(cmdClose, "cmdClose_Click", [this] { close(); });
  connect(chkDisableAutoUpdate, &QCheckBox::clicked, this,
          guarded("chkDisableAutoUpdate_Click", kModule, [](bool on) { Settings().sSet(kDisabled, on); }));
}

void fSHAREDUpdater::setState(State state) {
  state_ = state;
  const bool busy = state == State::Checking || state == State::Downloading;
  const bool available = state == State::Available || state == State::Downloading;
  for (QPushButton* button : {cmdShowDetail, cmdDownload, cmdDownloadInstall}) {
    button->setVisible(available);
    button->setEnabled(!busy);
  }
  cmdCheckAgain->setVisible(!busy);
  cmdCancel->setVisible(busy);
  ProgressBar1->setVisible(state == State::Downloading);
  cmdProxy->setEnabled(!busy);
  if (!available) {
    txtDetail->hide();
  }
}

bool fSHAREDUpdater::NoAutoCheck() {
  if (!isSet(kAsked)) {
    Settings().sSet(kAsked, true);
    const Answer answer = toolkit().MsgBox(
        u"Do you want to enable an automatic weekly check for new versions of this software? (Recommended)"_s,
        Buttons::YesNo);
    Settings().sSet(kDisabled, answer != Answer::Yes);
  }
  const bool disabled = isSet(kDisabled);
  if (disabled) {
    Logging().LogEvent(u"Automatic update check is disabled"_s);
  }
  return disabled;
}

bool fSHAREDUpdater::DoCheckNow() const {
  constexpr int kWeek = 7;
  const QDate last = QLocale::c().toDate(Settings().sGet(kLastCheck).toString().trimmed(), u"dd/MMM/yyyy"_s);
  return !last.isValid() || last.daysTo(Clock::today()) >= kWeek;
}

void fSHAREDUpdater::SaveLastCheckDate() {
  Settings().sSet(kLastCheck, formatByPattern(Clock::today(), u"DD/MMM/YYYY"_s, QLocale::c()));
}

void fSHAREDUpdater::showForm() {
  show();
  raise();
  activateWindow();
}

void fSHAREDUpdater::tellUpdate(const QString& text) {
  lblUpdate->setText(text);
  layout()->activate();
}

void fSHAREDUpdater::tellStatus(const QString& text) {
  lblStatus->setText(text);
  if (!silent_) {
    Q_EMIT Status(text);
  }
}

std::optional<QString> fSHAREDUpdater::fetchText(const QString& address) {
  // What the window is may go while the text comes; what fetches it stays.
  const std::shared_ptr<cSHAREDInternet> internet = internet_;
  const QPointer<fSHAREDUpdater> form(this);
  running_ = true;
  stopped_ = false;
  internet->ApplyProxy();
  QString text = internet->OpenURL(address);
  if (form.isNull()) {
    return std::nullopt;
  }
  running_ = false;
  return stopped_ ? std::nullopt : std::optional(std::move(text));
}

void fSHAREDUpdater::CheckForUpdate(bool Silent) {
  if (UpdateAddress::server().isEmpty()) {
    return;
  }
  if (!Silent) {
    showForm();
  }
  if (running_) {
    silent_ = silent_ && Silent;  // what is under way ends in the window that was asked for
    return;
  }
  silent_ = Silent;
  setState(State::Checking);
  lblProgram->setText(u"Version "_s + Subs().AppVersion());
  chkDisableAutoUpdate->setChecked(isSet(kDisabled));
  tellUpdate(u"Checking for update"_s);
  tellStatus({});
  const QPointer<fSHAREDUpdater> form(this);
  const std::optional<QString> reply = fetchText(UpdateAddress::versionFile());
  if (form.isNull()) {
    return;
  }
  if (!reply) {
    setState(State::Failed);
    tellUpdate(u"Could not retrieve update status"_s);
    tellStatus(u"Stopped"_s);
    return;
  }
  takeReply(reply->trimmed());
  Q_EMIT Finished();
}

void fSHAREDUpdater::takeReply(const QString& reply) {
  if (reply.isEmpty() || UpdateAddress::isPage(reply)) {
    if (!Guard("CheckForUpdate", kModule)([] { CurlLibrary::get(); })) {
      Logging().LogEvent(u"MSINET control is missing or outdated"_s);
      tellFailure(u"Could not retrieve update status\n\nThe internet control is missing or outdated."_s);
      return;
    }
    Logging().LogEvent(u"Could not retrieve information from the update server."_s);
    tellFailure(u"Could not retrieve update status\n\nUpdate check failed. You can look for a new version at "_s +
                QString::fromLatin1(Maker::kWebAddress));
    return;
  }
  tellStatus(u"Data retrieved"_s);
  SaveLastCheckDate();
  newest_ = VersionFile::read(reply);
  if (newest_.download.isEmpty()) {
    tellFailure(u"Update check failed, could not read download filename"_s);
  } else if (!newest_.numbers) {
    tellFailure(u"Could not read update status from file"_s);
  } else if (newest_.numbers->isNewerThan(ProgramVersion::read(Subs().AppVersion()).value_or(ProgramVersion{}))) {
    tellAvailable();
  } else {
    tellUpToDate();
  }
}

void fSHAREDUpdater::tellFailure(const QString& text) {
  setState(State::Failed);
  tellStatus({});
  tellUpdate(text);
  Logging().LogEvent(text.section(u'\n', 0, 0));
}

void fSHAREDUpdater::tellAvailable() {
  setState(State::Available);
  tellUpdate(u"Version "_s + newest_.version.toUpper() + u" is available!"_s);
  if (silent_ && toolkit().MsgBox(u"An update is available. Would you like to view the details now?"_s,
                                  Buttons::YesNo) == Answer::Yes) {
    showForm();
  }
  silent_ = false;
}

void fSHAREDUpdater::tellUpToDate() {
  setState(State::UpToDate);
  Logging().LogEvent(u"Already up to date (Available version is "_s + newest_.version + u')');
  tellUpdate(u"You're up to date!\nLatest available version is "_s + newest_.version);
}

void fSHAREDUpdater::cmdShowDetail_Click() {
  if (running_) {
    return;
  }
  const QString before = lblUpdate->text();
  tellUpdate(u"Retrieving info..."_s);
  setState(State::Checking);
  const QPointer<fSHAREDUpdater> form(this);
  const std::optional<QString> reply = fetchText(UpdateAddress::detailsFile());
  if (form.isNull()) {
    return;
  }
  setState(State::Available);
  tellUpdate(before);
  if (!reply) {
    tellStatus(u"Stopped"_s);
  } else if (reply->isEmpty() || reply->contains(u"html"_s, Qt::CaseInsensitive) || reply->contains(u"404"_s)) {
    tellStatus(u"Unable to read data from server. Please check your internet settings and try again."_s);
  } else {
    tellStatus({});
    txtDetail->setPlainText(*reply);
    txtDetail->show();
    txtDetail->setFocus();
  }
}

bool fSHAREDUpdater::Download(const QString& path) {
  const QString address = UpdateAddress::installer(UpdateAddress::versionFile(), newest_.download);
  if (address.isEmpty()) {
    toolkit().MsgBox(
        u"The installer is not downloaded. Only one that comes from the update server itself by a secure connection "
        "(HTTPS) can be trusted, and this one would come from:\n"_s +
        newest_.download);
    return false;
  }
  const std::shared_ptr<cSHAREDInternet> internet = internet_;
  const QPointer<fSHAREDUpdater> form(this);
  setState(State::Downloading);
  ProgressBar1->setValue(0);
  running_ = true;
  stopped_ = false;
  internet->ApplyProxy();
  internet->MayBeSentElsewhere = false;
  const QString failure = downloadInstaller(*internet, address, path);
  internet->MayBeSentElsewhere = true;
  if (form.isNull()) {
    return false;
  }
  running_ = false;
  setState(State::Available);
  if (!failure.isEmpty()) {
    tellStatus(stopped_ ? u"Download cancelled"_s : failure);
  }
  return failure.isEmpty() && !stopped_;
}

void fSHAREDUpdater::tellProgress(qint64 received) {
  const qint64 expected = internet_->ExpectedFilesize();
  const QString kilobytes = QString::number(received / kKilobyte);
  // A size that isn't known yet has a bar that only moves.
  ProgressBar1->setRange(0, expected > 0 ? kPercent : 0);
  if (expected > 0) {
    ProgressBar1->setValue(static_cast<int>(received * kPercent / expected));
  }
  if (state_ != State::Downloading) {
    return;
  }
  if (expected <= 0) {
    tellStatus(kilobytes + u" kb downloaded"_s);
  } else if (received >= expected) {
    tellStatus(kilobytes + u" kb (100%)"_s);
  } else {
    tellStatus(kilobytes + u" kb of "_s + QString::number(expected / kKilobyte));
  }
}

void fSHAREDUpdater::cmdDownload_Click() {
  if (running_) {
    return;
  }
  const QString folder = toolkit().PickFolder(u"Download the update to"_s, Paths::documentsFolder());
  if (folder.isEmpty()) {
    return;
  }
  const QString path = Files().Combine(folder, Files().FileOnly(newest_.download.section(u'?', 0, 0)));
  if (Files().FileExists(path) && toolkit().MsgBox(path + u" is there already. Do you want to replace it?"_s,
                                                   Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  if (Download(path)) {
    tellStatus(u"File saved to "_s + path);
  }
}

void fSHAREDUpdater::DownloadAndInstall() {
  if (running_) {
    return;
  }
  if (Download(Paths::programFolder() + u"Quillane4Upd.exe"_s) &&
      toolkit().MsgBox(u"The update has been downloaded. Do you want to install it now?"_s, Buttons::YesNo) ==
          Answer::Yes) {
    Q_EMIT InstallFile();
  }
}

void fSHAREDUpdater::StopAll() {
  stopped_ = running_;
  internet_->Cancel();
}

void fSHAREDUpdater::reject() {
  StopAll();
  QDialog::reject();
  Q_EMIT FormClosed();
}
