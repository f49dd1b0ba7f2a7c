#pragma once

#include <gtest/gtest.h>

#include <ole2.h>

#include <functional>

#include "support/import_patch.h"

// Stands in for the system's drag loop for the life of the object: what the library drags goes to
// `onDrag`, whose result is the loop's. After each loop the library has to cut off its receivers.
class FakeDrag {
 public:
  FakeDrag() { current = this; }
  ~FakeDrag() {
    EXPECT_EQ(dragged, nullptr);
    current = nullptr;
  }

  int runs = 0;
  std::function<HRESULT(IDataObject* data, IDropSource* source)> onDrag =
      [](IDataObject*, IDropSource*) { return DRAGDROP_S_DROP; };

 private:
  static inline FakeDrag* current = nullptr;

  static HRESULT WINAPI Run(IDataObject* data, IDropSource* source, DWORD allowed, DWORD* effect) {
    EXPECT_EQ(allowed, 1u);
    EXPECT_NE(effect, nullptr);
    ++current->runs;
    current->dragged = data;
    const HRESULT result = current->onDrag(data, source);
    EXPECT_EQ(current->dragged, data) << "before the loop has ended";
    return result;
  }

  static HRESULT WINAPI CutOff(IUnknown* object, DWORD) {
    EXPECT_EQ(object, current->dragged);
    current->dragged = nullptr;
    return S_OK;
  }

  IDataObject* dragged = nullptr;  // until its receivers are cut off
  ImportPatch patch{"DoDragDrop", &Run};
  ImportPatch disconnect{"CoDisconnectObject", &CutOff};
};
