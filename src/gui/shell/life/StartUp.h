#pragma once

#include <QString>

#include <memory>

class ListView;
class frmMain;
class frmSplash;

/// What happens between the start of the process and the main window's first appearance, in its order. An error
/// in any step ends it; the main window tells the user then.
class StartUp {
 public:
  explicit StartUp(frmMain& main);
  ~StartUp();

  void run();

 private:
  /// False, and said, at the first essential library that is missing.
  bool helperLibrariesExist() const;
  void setGlobals() const;
  void showSplash();
  void beginLog();
  void splashStatus(const QString& text) const;
  void fillStatusMenu() const;
  void greetFirstRun() const;
  void readSettings();
  void readFonts() const;
  void showStatusBar() const;
  void restoreLayout() const;
  void restoreList(const QString& name, ListView& list) const;
  void lookForDictionaries() const;
  void openProject();
  void openFromCommandLine(const QString& path);
  void openLast(const QString& path) const;
  void finish();
  void tellOfStart() const;
  void offerRescued() const;
  void tellOfRescuedTexts() const;

  frmMain& main_;
  /// A file that was named and isn't there.
  QString notFound_;
  /// One that was chosen and can't be read.
  QString lostLanguage_;
  /// The last run left its log without an end.
  bool endedBadly_ = false;
  std::unique_ptr<frmSplash> splash_;
};
