// Failures in what a signal is connected to.

#include "gui/toolkit/GuardedSlot.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

#include <QSpinBox>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
