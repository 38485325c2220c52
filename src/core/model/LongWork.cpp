#include "core/model/LongWork.h"

#include "core/infra/Guard.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/clsProject.h"

namespace {

constexpr int kMomentMs = 500;

}  // namespace

BusyMark::BusyMark(clsProject& project) : busy_(project.busy_, true) {}

LongWork::LongWork(clsProject& project, const QString& caption, bool showProgress, Stop stop)
    : busy_(project),
      current_(project.work_, this),
      hold_(toolkit().holdInput()),
      progress_(toolkit().makeProgressWindow()),
      shown_(showProgress) {
  since_.start();
  if (stop == Stop::Offered) {
    progress_->offerStop([this] { stopWanted_ = true; });
  }
  progress_->setCaption(translated(caption));
  if (showProgress) {
    progress_->Show();
  }
  toolkit().DoEvents();
}

LongWork::~LongWork() {
  progress_.reset();
  Guard("NormalMouse", "LongWork")([] { Subs().NormalMouse(); });
}

void LongWork::showIfLong() {
  if (!shown_ && since_.hasExpired(kMomentMs)) {
    shown_ = true;
    progress_->Show();
    toolkit().DoEvents();
  }
}

void LongWork::setCaption(const QString& caption) {
  progress_->setCaption(translated(caption));
  toolkit().DoEvents();
}

void LongWork::setCaption(const QString& pattern, qint32 number) {
  progress_->setCaption(translated(pattern).arg(number));
  Subs().RegularDoEvents();
}
