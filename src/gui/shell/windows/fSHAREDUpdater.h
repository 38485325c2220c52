#pragma once

#include "core/infra/VersionFile.h"

#include <QDialog>

#include <memory>

class cSHAREDInternet;
class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

/// Whether there is a newer version, what is new in it, and the way to its installer. It is there all the time and
/// shown when asked for. Whatever is fetched, the windows go on; one transfer runs at a time.
class fSHAREDUpdater : public QDialog {
  Q_OBJECT

 public:
  explicit fSHAREDUpdater(QWidget* parent);
  ~fSHAREDUpdater() override;

  /// Whether no check is made by itself. Asks the first time.
  bool NoAutoCheck();
  /// Whether the last check is a week old.
  bool DoCheckNow() const;
  static void SaveLastCheckDate();
  /// A silent one speaks only of a newer version, and leaves it to whoever hears of Offered when.
  void CheckForUpdate(bool Silent);
  /// Whether a silent check has found a newer version that nobody was told of yet.
  bool HasOffer() const { return offers_; }
  /// Tells of it and asks whether to show the window.
  void Offer();
  void ShowandCheck() { CheckForUpdate(false); }
  void DownloadAndInstall();
  void StopAll();
  void reject() override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 Q_SIGNALS:
  void Status(const QString& text);
  void Finished();
  void Offered();
  void FormClosed();
  /// The installer stands in its place, is this one, and is wanted.
  void InstallFile(const QByteArray& hash);
  /// What was downloaded before is there no more.
  void InstallerGone();

 private:
  enum class State { Idle, Checking, Failed, UpToDate, Available, Retrieving, Downloading };

  void buildLayout();
  void connectSignals();
  void setState(State state);
  void fit();
  void showForm();
  void tellUpdate(const QString& text);
  QPushButton* nextButton() const;
  /// The reason isn't the main window's.
  void tellStatus(const QString& text, const QString& reason = {});
  void beginTransfer();
  /// Nothing when the window has gone or the transfer was stopped meanwhile.
  std::optional<QString> fetchText(const QString& address);
  void takeReply(const QString& reply);
  void tellUnanswered();
  /// The text as it is in English, for the log.
  void tellFailure(const QString& text, const QString& advice = {});
  void tellAvailable();
  void tellUpToDate();
  /// How an installer is fetched from an address to a path; what is told of why not.
  using Fetch = QString (*)(cSHAREDInternet& internet, const QString& address, const QString& path);
  /// Empty, and said, for one that can't be trusted.
  QString trustedAddress() const;
  bool Download(Fetch fetch, const QString& address, const QString& path);
  void tellProgress(qint64 received);
  void cmdShowDetail_Click();
  void cmdDownload_Click();

  const std::shared_ptr<cSHAREDInternet> internet_;
  VersionFile newest_;
  /// What kept the last transfer from coming to its end.
  QString why_;
  State state_ = State::Idle;
  bool silent_ = false;
  bool running_ = false;
  bool stopped_ = false;
  bool offers_ = false;

  QLabel* lblProgram;
  QLabel* lblUpdate;
  QLabel* lblStatus;
  QProgressBar* ProgressBar1;
  QPlainTextEdit* txtDetail;
  QCheckBox* chkDisableAutoUpdate;
  QPushButton* cmdCheckAgain;
  QPushButton* cmdShowDetail;
  QPushButton* cmdDownload;
  QPushButton* cmdDownloadInstall;
  QPushButton* cmdCancel;
  QPushButton* cmdProxy;
  QPushButton* cmdClose;
};
