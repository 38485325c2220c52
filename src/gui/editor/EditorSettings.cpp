#include "gui/editor/EditorSettings.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

EditorSettings EditorSettings::fromSettings() {
  const auto isOn = [](const QString& key, bool otherwise) { return Numbers::ToBool(Settings().sGet(key, otherwise)); };
  const double minutes =
      Numbers::ToNumber(Settings().sGet(u"SequentialFrequency"_s, kUsualMinutes)).value_or(kUsualMinutes);
  return {isOn(u"AutoBackupSequential"_s, false),
          static_cast<int>(std::clamp(minutes, 0.0, static_cast<double>(kMostMinutes))),
          isOn(u"CreateTextToo"_s, false), isOn(u"FontBarFollowsText"_s, true)};
}

void EditorSettings::toSettings() const {
  Settings().sSet(u"AutoBackupSequential"_s, AutoBackupSequential);
  if (AutoBackupSequential) {
    Settings().sSet(u"SequentialFrequency"_s, QString::number(SequentialFrequency));
  }
  Settings().sSet(u"CreateTextToo"_s, CreateTextToo);
  Settings().sSet(u"FontBarFollowsText"_s, FontBarFollowsText);
}
