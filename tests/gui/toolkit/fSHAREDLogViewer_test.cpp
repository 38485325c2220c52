#include "gui/toolkit/fSHAREDLogViewer.h"

#include "core/infra/Paths.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(fSHAREDLogViewer, ShowsTheLogToItsLastEvent) {
  Logging().LogEvent(u"Starting Application"_s, true);
  Logging().AddAction(u"queued \u0416"_s);
  QPointer<fSHAREDLogViewer> viewer = fSHAREDLogViewer::open(nullptr);
  ASSERT_NE(viewer, nullptr);
  ASSERT_TRUE(waitUntilShown(*viewer));
  const auto* const text = &childOf<QPlainTextEdit>(*viewer, u"txtLog"_s);
  EXPECT_EQ(viewer->windowTitle(), Paths::programFolder() + u"log.txt"_s);
  EXPECT_TRUE(text->toPlainText().startsWith(u"1 "_s));
  EXPECT_TRUE(text->toPlainText().endsWith(u"queued \u0416\n"_s));
  EXPECT_TRUE(text->isReadOnly());
  viewer->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(viewer.isNull());
}

TEST(fSHAREDLogViewer, IsEmptyWithoutALog) {
  Logging().WriteActionsToLog();
  Files().EraseFile(Paths::programFolder() + u"log.txt"_s);
  const fSHAREDLogViewer viewer;
  EXPECT_EQ(childOf<QPlainTextEdit>(viewer, u"txtLog"_s).toPlainText(), QString());
}
