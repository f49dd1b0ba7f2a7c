#pragma once

#include <stdexcept>
#include <string>
#include <vector>

// Replaces a platform call of the library for the life of the object: every call that qvl makes
// to the function `name` goes to `replacement`. Other modules, the test program among them, keep
// the function itself. Patches of the same name nest and must end in reverse order.
//
//   ImportPatch patch("GlobalAlloc", &FailingGlobalAlloc);
//
// Throws std::runtime_error if the library does not import `name`: a test that replaces nothing
// proves nothing.
class ImportPatch {
 public:
  template <class Result, class... Arguments>
  ImportPatch(const char* name, Result (*replacement)(Arguments...))
      : ImportPatch(name, reinterpret_cast<void*>(replacement)) {}
  ~ImportPatch() { Point(original); }

  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

 private:
  ImportPatch(const char* name, void* replacement) : slots(FindSlots(name)) {
    if (slots.empty()) throw std::runtime_error(std::string("qvl does not import ") + name);
    original = *slots.front();
    Point(replacement);
  }

  // Where the library keeps the address of that function, bound and writable. This is the one thing
  // that the two kinds of image differ in.
  static std::vector<void**> FindSlots(const std::string& name);

  void Point(void* target) {
    for (void** slot : slots) *slot = target;
  }

  std::vector<void**> slots;
  void* original = nullptr;
};
