#include "support/import_patch.h"

#include <stdexcept>

ImportPatch::ImportPatch(const char* name, void* replacement) : slots(FindSlots(name)) {
  if (slots.empty()) throw std::runtime_error(std::string("the library does not import ") + name);
  original = *slots.front();
  Point(replacement);
}
