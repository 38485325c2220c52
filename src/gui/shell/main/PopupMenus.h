#pragma once

#include <QObject>

class ListView;
class frmMain;

/// The pop-up menus of the main window's lists. Chapters and scenes share theirs with the menu bar: what works on no
/// row of the list isn't shown while one is a pop-up.
class PopupMenus : public QObject {
  Q_OBJECT

 public:
  explicit PopupMenus(frmMain& main);

  /// A menu of the bar, or the pop-up of its list, is about to be shown.
  void mnuChapters_Click();
  void mnuScene_Click();

 private:
  void joinCharLists();
  void popUp(const char* menu, const QPoint& place);
  void ListChapters_MouseUp(const QPoint& place);
  void ListScenes_MouseUp(const QPoint& place);
  void ListChar_MouseUp(ListView& list, bool inScene, const QPoint& place);
  void HidePopupOnlyEntries();
  void ShowPopupOnlyEntries();
  void checkStatus();

  frmMain& main_;
  /// The menu that is up belongs to a list.
  bool popup_ = false;
};
