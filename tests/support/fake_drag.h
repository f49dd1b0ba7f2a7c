#pragma once

#include <gtest/gtest.h>

#include <ole2.h>

#include <functional>

#include "support/import_patch.h"

// Stands in for the system's drag loop for the life of the object: what the library drags goes to
// `onDrag`, whose result is the loop's.
class FakeDrag {
 public:
  FakeDrag() { current = this; }
  ~FakeDrag() { current = nullptr; }

  int runs = 0;
  std::function<HRESULT(IDataObject* data, IDropSource* source)> onDrag =
      [](IDataObject*, IDropSource*) { return DRAGDROP_S_DROP; };

 private:
  static inline FakeDrag* current = nullptr;

  static HRESULT WINAPI Run(IDataObject* data, IDropSource* source, DWORD allowed, DWORD* effect) {
    EXPECT_EQ(allowed, 1u);
    EXPECT_NE(effect, nullptr);
    ++current->runs;
    return current->onDrag(data, source);
  }

  ImportPatch patch{"DoDragDrop", &Run};
};
