#include "gui/editor/WritingTips.h"

#include "core/infra/cSharedLang.h"

#include <array>

using namespace Qt::StringLiterals;

QString nextWritingTip() {
  static const std::array kTips{
      shownText(u"Sometimes it's quicker to rewrite a short scene from scratch than to keep editing it."_s),
      shownText(u"Use all five senses: taste, touch, smell, hearing and sight."_s),
      shownText(u"Break long scenes into smaller pieces to make rewriting easier. You can join them up again later."_s),
      shownText(u"Take a 5-10 minute break every hour. Walk, exercise, make a drink."_s)};
  static size_t next = 0;
  return kTips[next++ % kTips.size()];
}
