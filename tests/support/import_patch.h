#pragma once

#include <string>
#include <type_traits>
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
  ~ImportPatch();

  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

  // What the library called before; `Function` is the function's type or a pointer to it.
  template <class Function>
  std::add_pointer_t<std::remove_pointer_t<Function>> Original() const {
    return reinterpret_cast<std::add_pointer_t<std::remove_pointer_t<Function>>>(original);
  }

 private:
  ImportPatch(const char* name, void* replacement);

  std::vector<void**> slots;
  void* original = nullptr;
};

// Whether the library imports `name` at all.
bool LibraryImports(const std::string& name);
