#include "gui/shell/windows/fSHAREDUpdater.h"

#include "Version.h"
#include "core/infra/Clock.h"
#include "core/infra/CurlLibrary.h"
#include "core/infra/DateFormat.h"
#include "core/infra/Guard.h"
#include "core/infra/Maker.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDInternet.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/fSHAREDProxy.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "fSHAREDUpdater";
constexpr int kLetters = 60;

const QString kLines = u"%1\n%2"_s;
const QString kParted = u"%1\n\n%2"_s;

const QString kDisabled = u"DisableAutoUpdateCheck"_s;
const QString kAsked = u"AskedAboutAutoUpdates"_s;
const QString kLastCheck = u"LastUpdateCheck"_s;

bool isSet(const QString& key) {
  return Settings().sGetWD(key, 0).toInt() != 0;
}

QString availability(const VersionFile& newest) {
  return toldText(u"Version %1 is available!"_s, {newest.version.toUpper()});
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
  internet_->Receiving = nullptr;
  internet_->Progress = nullptr;
  internet_->DownloadError = nullptr;
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
  giveTabOrder({cmdShowDetail, cmdDownload, cmdDownloadInstall, txtDetail, chkDisableAutoUpdate, cmdProxy,
                cmdCheckAgain, cmdCancel, cmdClose});
}

void fSHAREDUpdater::connectSignals() {
  internet_->Status = [this](const QString& status) { tellStatus(status); };
  // How much has come is told from then on.
  internet_->Receiving = [this] { internet_->SuppressAllButDLAndErrors = state_ == State::Downloading; };
  internet_->Progress = [this](qint64 received) { tellProgress(received); };
  internet_->DownloadError = [this](const QString& why) { why_ = why; };
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
  const QWidget* const focused = focusWidget();
  state_ = state;
  const bool busy = state == State::Checking || state == State::Retrieving || state == State::Downloading;
  const bool available = state == State::Available || state == State::Retrieving || state == State::Downloading;
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
  if (focused == nullptr || focused->isHidden() || !focused->isEnabled()) {
    nextButton()->setFocus();
  }
  if (txtDetail->isHidden() && !isMaximized()) {
    resize(width(), 0);
  }
  fit();
}

/// In English: they stay there while the language is changed.
void fSHAREDUpdater::tellUpdate(const QString& text) {
  lblUpdate->setText(text);
  fit();
}

void fSHAREDUpdater::tellStatus(const QString& text, const QString& reason) {
  lblStatus->setText(reason.isEmpty() ? text : toldText(kLines, {toldText(text), toldText(reason)}));
  fit();
  if (!silent_) {
    Q_EMIT Status(translated(text));
  }
}

/// As high as all lines need: lines that are wrapped don't see to it by themselves.
void fSHAREDUpdater::fit() {
  layout()->activate();
  const int needed = layout()->totalHeightForWidth(width());
  if (needed > height()) {
    resize(width(), needed);
  }
}

/// What the keyboard is most likely wanted for.
QPushButton* fSHAREDUpdater::nextButton() const {
  switch (state_) {
    case State::Checking:
    case State::Retrieving:
    case State::Downloading:
      return cmdCancel;
    case State::Available:
      return cmdShowDetail;
    case State::Failed:
      return cmdCheckAgain;
    default:
      return cmdClose;
  }
}

bool fSHAREDUpdater::NoAutoCheck() {
  if (!isSet(kAsked)) {
    // Nobody has agreed while the question is up, however that ends.
    Settings().sSet(kDisabled, true);
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
  // A date to come is that of a clock that was wrong.
  return !last.isValid() || last.daysTo(Clock::today()) >= kWeek || last > Clock::today();
}

void fSHAREDUpdater::SaveLastCheckDate() {
  Settings().sSet(kLastCheck, formatByPattern(Clock::today(), u"DD/MMM/YYYY"_s, QLocale::c()));
}

void fSHAREDUpdater::showForm() {
  show();
  raise();
  activateWindow();
}

std::optional<QString> fSHAREDUpdater::fetchText(const QString& address) {
  // What the window is may go while the text comes; what fetches it stays.
  const std::shared_ptr<cSHAREDInternet> internet = internet_;
  const QPointer<fSHAREDUpdater> form(this);
  beginTransfer();
  const auto ended = qScopeGuard([&form] {
    if (!form.isNull()) {
      form->running_ = false;
    }
  });
  QString text = internet->OpenURL(address);
  return form.isNull() || stopped_ ? std::nullopt : std::optional(std::move(text));
}

void fSHAREDUpdater::beginTransfer() {
  running_ = true;
  stopped_ = false;
  why_.clear();
  internet_->SuppressAllButErrors = silent_;
  internet_->SuppressAllButDLAndErrors = false;
  internet_->ApplyProxy();
}

void fSHAREDUpdater::CheckForUpdate(bool Silent) {
  if (UpdateAddress::server().isEmpty()) {
    return;
  }
  if (!Silent) {
    offers_ = false;
    showForm();
  }
  if (running_) {
    silent_ = silent_ && Silent;  // what is under way ends in the window that was asked for
    internet_->SuppressAllButErrors = silent_;
    return;
  }
  silent_ = Silent;
  setState(State::Checking);
  if (!Silent) {
    nextButton()->setFocus();
  }
  lblProgram->setText(toldText(u"Version %1"_s, {u"" QUILLANE_VERSION ""_s}));
  chkDisableAutoUpdate->setChecked(isSet(kDisabled));
  tellUpdate(shownText(u"Checking for update"_s));
  tellStatus({});
  const QPointer<fSHAREDUpdater> form(this);
  const std::optional<QString> reply = fetchText(UpdateAddress::versionFile());
  if (form.isNull()) {
    return;
  }
  if (reply) {
    takeReply(reply->trimmed());
  } else {
    tellFailure(u"Could not retrieve update status"_s);
    tellStatus(shownText(u"Stopped"_s));
  }
  Q_EMIT Finished();
}

void fSHAREDUpdater::takeReply(const QString& reply) {
  if (reply.isEmpty() || UpdateAddress::isPage(reply)) {
    if (!reply.isEmpty()) {
      // A network that wants a name first answers so to everything.
      why_ = shownText(u"The server sent a page for a browser"_s);
    }
    tellUnanswered();
    return;
  }
  tellStatus(shownText(u"Data retrieved"_s));
  SaveLastCheckDate();
  newest_ = VersionFile::read(reply);
  if (newest_.download.isEmpty()) {
    tellFailure(shownText(u"Update check failed, could not read download filename"_s));
  } else if (!newest_.numbers) {
    tellFailure(shownText(u"Could not read update status from file"_s));
  } else if (newest_.numbers->isNewerThan(ProgramVersion::read(u"" QUILLANE_VERSION).value_or(ProgramVersion{}))) {
    tellAvailable();
  } else {
    tellUpToDate();
  }
}

void fSHAREDUpdater::tellUnanswered() {
  const QString failed = shownText(u"Could not retrieve update status"_s);
  if (!Guard("CheckForUpdate", kModule)([] { CurlLibrary::get(); })) {
    Logging().LogEvent(u"MSINET control is missing or outdated"_s);
    tellFailure(failed, shownText(u"The internet control is missing or outdated."_s));
    return;
  }
  Logging().LogEvent(u"Could not retrieve information from the update server."_s);
  tellFailure(failed, toldText(u"Update check failed. You can look for a new version at %1"_s,
                               {QString::fromLatin1(Maker::kWebAddress)}));
  tellStatus(why_);
}

void fSHAREDUpdater::tellFailure(const QString& text, const QString& advice) {
  Logging().LogEvent(text);
  setState(State::Failed);
  tellStatus({});
  tellUpdate(advice.isEmpty() ? text : toldText(kParted, {toldText(text), toldText(advice)}));
}

void fSHAREDUpdater::tellAvailable() {
  setState(State::Available);
  tellUpdate(availability(newest_));
  if (std::exchange(silent_, false)) {
    offers_ = true;
    // Whoever ends the program before is told by the next run's check.
    Settings().DeleteSettingByName(kLastCheck);
    Q_EMIT Offered();
  }
}

void fSHAREDUpdater::Offer() {
  offers_ = false;
  SaveLastCheckDate();
  if (toolkit().MsgBox(u"An update is available. Would you like to view the details now?"_s, Buttons::YesNo) ==
      Answer::Yes) {
    showForm();
    nextButton()->setFocus();
  }
}

void fSHAREDUpdater::tellUpToDate() {
  setState(State::UpToDate);
  Logging().LogEvent(u"Already up to date (Available version is "_s + newest_.version + u')');
  tellUpdate(toldText(
      kLines, {toldText(u"You're up to date!"_s), toldText(u"Latest available version is %1"_s, {newest_.version})}));
}

void fSHAREDUpdater::cmdShowDetail_Click() {
  if (running_) {
    return;
  }
  tellUpdate(shownText(u"Retrieving info..."_s));
  setState(State::Retrieving);
  const QPointer<fSHAREDUpdater> form(this);
  const std::optional<QString> reply = fetchText(UpdateAddress::detailsFile());
  if (form.isNull()) {
    return;
  }
  setState(State::Available);
  tellUpdate(availability(newest_));
  if (!reply) {
    tellStatus(shownText(u"Stopped"_s));
  } else if (reply->isEmpty() || reply->contains(u"html"_s, Qt::CaseInsensitive) || reply->contains(u"404"_s)) {
    tellStatus(shownText(u"Unable to read data from server. Please check your internet settings and try again."_s),
               why_);
  } else {
    tellStatus({});
    txtDetail->setPlainText(*reply);
    txtDetail->show();
    txtDetail->setFocus();
  }
}

// A key that stops doesn't close as well, and Enter, which would close, ends no download.
void fSHAREDUpdater::keyPressEvent(QKeyEvent* event) {
  if (running_ && event->matches(QKeySequence::Cancel)) {
    StopAll();
    return;
  }
  if (running_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    return;
  }
  QDialog::keyPressEvent(event);
}

// Another language needs other lines.
bool fSHAREDUpdater::event(QEvent* event) {
  const bool done = QDialog::event(event);
  if (event->type() == QEvent::LayoutRequest) {
    fit();
  }
  return done;
}

void fSHAREDUpdater::reject() {
  StopAll();
  QDialog::reject();
  Q_EMIT FormClosed();
}
