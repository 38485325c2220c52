#include "support/TestHome.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  const TestHome home;
  return RUN_ALL_TESTS();
}
