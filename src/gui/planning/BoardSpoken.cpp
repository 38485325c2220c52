#include "gui/planning/BoardSpoken.h"

#include <QAccessible>
#include <QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace {

/// Asked with the name of each class that an object is of; what isn't ours is left to others.
QAccessibleInterface* spokenAs(const QString& className, QObject* object) {
  const bool isCard = className == u"StoryCard"_s;
  if (!isCard && className != u"BoardGround"_s) {
    return nullptr;
  }
  return new QAccessibleWidget(static_cast<QWidget*>(object), isCard ? QAccessible::ListItem : QAccessible::List);
}

}  // namespace

void speakOfCards() {
  QAccessible::installFactory(&spokenAs);
}
