#pragma once

#include "core/infra/cSHAREDSettings.h"
#include "core/model/EntityDialogs.h"
#include "gui/sheets/EntitySheets.h"
#include "support/ModalHelper.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"
#include "support/WaitFor.h"

#include <QDialog>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

/// The sheets over the small project.
class SheetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Settings().DeleteAllSettings();
    makeSmallProject();
    registerSheets();
  }
  void TearDown() override {
    newProject();
    entityDialogs() = {};
  }

  /// Acts on the sheet that `open` brings up; one that is still there behind the act is cancelled. What `open` gave.
  static bool during(const std::function<bool()>& open, const std::function<void(QDialog&)>& act) {
    const WhenModal whenUp([&](QWidget& window) {
      auto& sheet = dynamic_cast<QDialog&>(window);
      const QPointer<QDialog> alive(&sheet);
      const auto leave = [&] {
        if (alive && alive->isVisible()) {
          sheet.done(QDialog::Rejected);
        }
      };
      try {
        EXPECT_TRUE(waitUntilActive(sheet));
        act(sheet);
      } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
      }
      leave();
    });
    return open();
  }

  static void type(QWidget& field, const QString& text) {
    field.setFocus();
    QTest::keyClicks(&field, text);
  }

  ScriptedToolkit toolkit;
  ScratchFolder folder;
};
