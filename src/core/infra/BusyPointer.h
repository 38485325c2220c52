#pragma once

#include "core/infra/Toolkit.h"

/// The busy pointer, for as long as the object lives.
class BusyPointer {
 public:
  BusyPointer() { toolkit().setPointer(Pointer::Busy); }
  ~BusyPointer() { toolkit().setPointer(Pointer::Normal); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};
