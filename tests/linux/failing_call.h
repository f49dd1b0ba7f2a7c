#pragma once

#include "support/import_patch.h"

#include <memory>

// Counts calls and makes one of them fail.
struct FailurePoint {
  static inline int calls = 0;
  static inline int failing = 0;  // the number of the call that fails, from 1; 0 for none

  static void Arm(int number) {
    calls = 0;
    failing = number;
  }
  static void Disarm() { failing = 0; }
  static bool Fails() { return ++calls == failing; }
};

// Replaces a platform function, which fails with the given value when FailurePoint requires it.
template <auto Function, auto Failure>
struct Failing;

template <class Result, class... Arguments, Result (*Function)(Arguments...), auto Failure>
struct Failing<Function, Failure> {
  static Result Call(Arguments... arguments) {
    if (FailurePoint::Fails()) return static_cast<Result>(Failure);
    return Function(arguments...);
  }
};

template <auto Function, auto Failure>
std::unique_ptr<ImportPatch> PatchToFail(const char* name) {
  return std::make_unique<ImportPatch>(name, &Failing<Function, Failure>::Call);
}
