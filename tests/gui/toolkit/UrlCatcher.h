#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

/// While it lives, documents and mail links are not opened but kept here.
class UrlCatcher : public QObject {
  Q_OBJECT

 public:
  UrlCatcher() {
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "take");
    QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "take");
  }
  ~UrlCatcher() override {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
  }
  Q_SLOT void take(const QUrl& url) { taken.append(url); }

  QList<QUrl> taken;
};
