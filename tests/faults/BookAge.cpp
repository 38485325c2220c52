#include "faults/BookAge.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

BookContent contentOfProject() {
  BookContent content;
  QStringList plan{g_Project->Title, g_Project->DescText};
  for (const auto& scene : g_Project->Scenes) {
    plan += {QString::number(scene->ID()), scene->Title, scene->Goal, scene->Notes};
    content.texts.insert(scene->ID(), scene->TextRTF());
  }
  for (const auto& chapter : g_Project->Chapters) {
    plan += chapter->Title;
    for (qint32 i = 1; i <= chapter->SceneCount(); ++i) {
      plan += QString::number(chapter->SceneID(i));
    }
  }
  content.plan = plan.join(u'\n');
  return content;
}

Age ageOf(const BookContent& now, const BookContent& before, const BookContent& after, QString& wrong) {
  if (now == after) {
    return Age::New;
  }
  const bool planIsOld = now.plan == before.plan;
  if (!planIsOld && now.plan != after.plan) {
    wrong = u"the plan is neither the old nor the new"_s;
    return Age::Lost;
  }
  bool allAsPlan = true;
  for (auto text = now.texts.cbegin(); text != now.texts.cend(); ++text) {
    const bool isOld = *text == before.texts.value(text.key());
    const bool isNew = *text == after.texts.value(text.key());
    if (!isOld && !isNew) {
      wrong = u"the text of scene %1 is neither the old nor the new: "_s.arg(text.key()) + QString::fromLatin1(*text);
      return Age::Lost;
    }
    allAsPlan = allAsPlan && (planIsOld ? isOld : isNew);
  }
  if (planIsOld) {
    return allAsPlan ? Age::Old : Age::TextsAhead;
  }
  return Age::TextsBehind;
}
