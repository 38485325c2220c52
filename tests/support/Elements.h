#pragma once

#include "core/text/TagView.h"

#include <QByteArray>

#include <memory>

/// Reads an entity from the text of its element, as the project file holds it.
template <class Entity>
auto readFrom(Entity& entity, QByteArrayView xml) {
  return entity.CreateFromXML(TagView(TagIndex(xml)));
}

/// A new entity with this ID, which it can only have been given by a file.
template <class Entity>
std::shared_ptr<Entity> withID(qint32 id) {
  auto entity = std::make_shared<Entity>();
  readFrom(*entity, "<ID>" + QByteArray::number(id) + "</ID>");
  return entity;
}
