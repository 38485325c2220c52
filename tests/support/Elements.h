#pragma once

#include "core/text/TagView.h"

#include <QByteArray>

/// Reads an entity from the text of its element, as the project file holds it.
template <class Entity>
auto readFrom(Entity& entity, QByteArrayView xml) {
  return entity.CreateFromXML(TagView(TagIndex(xml)));
}
