#include "gui/editor/EditorColours.h"

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "gui/toolkit/RichTextBox.h"

using namespace Qt::StringLiterals;

namespace {

/// Stored as a signed number, so that a system colour is negative; an unsigned one is understood too.
quint32 colourSetting(const QString& key, quint32 otherwise) {
  const std::optional<double> number = Numbers::ToNumber(Settings().sGet(key));
  constexpr double lowest = -2147483648.0;
  constexpr double highest = 4294967295.0;
  if (!number || !(*number >= lowest && *number <= highest)) {
    return otherwise;
  }
  return static_cast<quint32>(static_cast<qint64>(*number));
}

}  // namespace

EditorColours EditorColours::fromSettings() {
  return {colourSetting(u"EditorBG"_s, Colours::systemWindow), colourSetting(u"EditorFG"_s, Colours::systemWindowText)};
}

void EditorColours::toSettings() const {
  Settings().sSet(u"EditorBG"_s, static_cast<qint32>(EditorBG));
  Settings().sSet(u"EditorFG"_s, static_cast<qint32>(EditorFG));
}

std::optional<quint32> EditorColours::textColour() const {
  return Colours::isSystem(EditorFG) ? std::nullopt : std::optional(EditorFG & 0xFFFFFFU);
}

void EditorColours::applyTo(RichTextBox& pane) const {
  pane.setBackColor(EditorBG);
  // States only what differs, so that the rest goes on following the desktop.
  QPalette palette = pane.palette();
  if (!Colours::isSystem(EditorFG)) {
    palette.setColor(QPalette::Text, Colours::toQt(EditorFG));
  } else if (!Colours::isSystem(EditorBG)) {
    palette.setColor(QPalette::Text, Colours::textOn(Colours::toQt(EditorBG)));
  }
  pane.setPalette(palette);
}
