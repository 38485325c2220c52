#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextBrowser;

/// A line below a page, to look for words in it. Hidden until it is asked for.
class HelpFindBar : public QWidget {
 public:
  explicit HelpFindBar(QTextBrowser& page, QWidget* parent = nullptr);

  /// Shows it, with what is selected in the page to look for.
  void ask();
  /// The next place, or the one before; behind the last comes the first. Without a text it asks for one.
  void find(bool backward);
  /// Back to the page.
  void leave();

 private:
  void buildLayout();
  void findTyped();
  /// False when the page doesn't hold it.
  bool search(bool backward);

  QTextBrowser& page_;
  QLineEdit* txtFind;
  QLabel* lblNotFound;
};
