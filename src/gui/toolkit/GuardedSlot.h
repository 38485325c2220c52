#pragma once

#include "core/infra/Guard.h"

#include <type_traits>
#include <utility>

/// Calls the slot with the signal's arguments, or without where it wants none.
template <class Slot, class... Arguments>
void callSlot(Slot& slot, Arguments&&... arguments) {
  if constexpr (std::is_invocable_v<Slot&, Arguments...>) {
    slot(std::forward<Arguments>(arguments)...);
  } else {
    slot();
  }
}

/// What a signal is connected to: runs `slot`, and a failure in it is logged under the names given and goes no
/// further. An exception must not travel through the toolkit, which knows of none. The slot takes the signal's
/// arguments or nothing; the names are literals.
///
///     connect(button, &QPushButton::clicked, this, guarded("cmdSave_Click", "frmEditor", [this] { save(); }));
template <class Slot>
auto guarded(const char* routine, const char* module, Slot slot) {
  return [routine, module, slot = std::move(slot)](auto&&... arguments) mutable -> void {
    Guard(routine, module)([&] { callSlot(slot, std::forward<decltype(arguments)>(arguments)...); });
  };
}

/// The same with a member function that takes the signal's arguments or nothing.
template <class Object, class Result, class... Parameters>
auto guarded(const char* routine, const char* module, Object* object, Result (Object::*member)(Parameters...)) {
  return [=](Parameters... arguments) { Guard(routine, module)([&] { (object->*member)(arguments...); }); };
}
