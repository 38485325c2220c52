#pragma once

#include <QTextBrowser>

/// Shows the pages of a folder, in the colours of the desktop. Pictures are never wider than the page. Nothing is
/// fetched from elsewhere: what leads out of the folder is handed to the desktop.
class HelpBrowser : public QTextBrowser {
 public:
  explicit HelpBrowser(QWidget* parent = nullptr);

  /// False when there is no such page.
  bool showPage(const QUrl& address);
  /// The letters' size against that of the program's other windows, in points.
  int zoom() const { return zoom_; }
  void setZoom(int points);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void useColours();
  void follow(const QUrl& link);
  void fitPictures();
  QVariant fittedPicture(const QUrl& name) const;

  QString folder_;
  int zoom_ = 0;
  int fittedTo_ = 0;
};
