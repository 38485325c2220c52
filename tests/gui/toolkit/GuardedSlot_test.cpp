// Failures in what a signal is connected to.

#include "gui/toolkit/GuardedSlot.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

#include <QAbstractButton>
#include <QSpinBox>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Listener {
  void takesNothing() { ++calls; }
  void takesValue(int value) { seen = value; }
  int calls = 0;
  int seen = 0;
};

}  // namespace

TEST(GuardedSlot, AFailureIsLoggedAndGoesNoFurther) {
  QSpinBox box;
  int behind = 0;
  QObject::connect(&box, &QSpinBox::valueChanged, &box,
                   guarded("box_Change", "frmTest", [] { throw RuntimeError(RuntimeError::DiskFull); }));
  QObject::connect(&box, &QSpinBox::valueChanged, &box, guarded("box_Change", "frmTest", [&] { ++behind; }));
  EXPECT_NO_THROW(box.setValue(7));
  EXPECT_EQ(behind, 1);
  EXPECT_TRUE(Logging().CurrentAction().contains(u"(61) in box_Change of module frmTest"_s))
      << Logging().CurrentAction();
}

TEST(GuardedSlot, TakesTheArgumentsOrNone) {
  QSpinBox box;
  Listener listener;
  int fromLambda = 0;
  QObject::connect(&box, &QSpinBox::valueChanged, &box, guarded("", "", &listener, &Listener::takesValue));
  QObject::connect(&box, &QSpinBox::valueChanged, &box, guarded("", "", &listener, &Listener::takesNothing));
  QObject::connect(&box, &QSpinBox::valueChanged, &box, guarded("", "", [&](int value) { fromLambda = value; }));
  box.setValue(9);
  EXPECT_EQ(listener.seen, 9);
  EXPECT_EQ(listener.calls, 1);
  EXPECT_EQ(fromLambda, 9);
}
