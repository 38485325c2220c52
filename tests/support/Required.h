#pragma once

#include <QObject>
#include <QString>

#include <stdexcept>

/// What the pointer points to. A null one ends this test with the name of what is missing; the others still run.
template <class Pointer>
auto& required(const Pointer& pointer, const QString& what) {
  if (pointer == nullptr) {
    throw std::runtime_error("there is no " + what.toStdString());
  }
  return *pointer;
}

/// The child of this type and name; without a name the first of the type.
template <class Child>
Child& childOf(const QObject& parent, const QString& name = {}) {
  return required(parent.findChild<Child*>(name),
                  name.isEmpty() ? QString::fromLatin1(Child::staticMetaObject.className()) : name);
}

/// The element of a list at this index.
template <class List>
const auto& elementOf(const List& list, qsizetype index) {
  if (index < 0 || index >= static_cast<qsizetype>(list.size())) {
    throw std::runtime_error("there is no element " + std::to_string(index) + " of " + std::to_string(list.size()));
  }
  return *(list.cbegin() + index);
}
