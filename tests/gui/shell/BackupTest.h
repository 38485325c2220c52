#pragma once

#include "core/infra/Clock.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"

#include <QDir>

/// The small project, not yet opened, with a day of backups to put copies into.
class BackupTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    project_ = smallProject();
  }

  QString below(const QString& name) const { return folder.path(QStringLiteral("Small/") + name); }
  /// Full path of a copy of a scene's text in the folder of a day, so many minutes younger than the scene's file.
  QString writeCopy(const QString& name, const QByteArray& text, int minutes, const QDate& day = Clock::today()) const {
    const QString path = below(QStringLiteral("Autobackups/") + day.toString(Qt::ISODate) + QDir::separator() + name);
    QDir().mkpath(Files().PathOnly(path));
    writeFile(path, text);
    const QDateTime saved = Files().FileDate(below(QStringLiteral("RTF/RTF_00001.rtf")));
    EXPECT_TRUE(Files().SetFileDateTime(path, saved.addSecs(qint64{60} * minutes)));
    return path;
  }
  /// The archive of today.
  QString archive(const QString& ending = QStringLiteral(".zip")) const {
    return below(QStringLiteral("Autobackups/") + Clock::today().toString(Qt::ISODate) + QStringLiteral("/Small") +
                 ending);
  }

  QString project_;
};
