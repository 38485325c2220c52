#include "gui/editor/WritingTips.h"

#include <array>

using namespace Qt::StringLiterals;

QString nextWritingTip() {
  static const std::array kTips{
      u"Sometimes it's quicker to rewrite a short scene from scratch than to keep editing it."_s,
      u"Use all five senses: taste, touch, smell, hearing and sight."_s,
      u"Break long scenes into smaller pieces to make rewriting easier. You can join them up again later."_s,
      u"Take a 5-10 minute break every hour. Walk, exercise, make a drink."_s};
  static size_t next = 0;
  return kTips[next++ % kTips.size()];
}
