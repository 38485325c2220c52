#include "support/TestHome.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  const TestHome home;
  return RUN_ALL_TESTS();
}
