#pragma once

#include <gtest/gtest.h>

#include <ole2.h>

#include <functional>

#include "support/import_patch.h"

// Replaces the system's drag loop for the life of the object: `onDrag` gets what the library drags
// and gives the loop's result. After each loop the library must disconnect its receivers.
class FakeDrag {
 public:
  FakeDrag() { current = this; }
  ~FakeDrag() { EXPECT_EQ(dragged, nullptr); }

  int runs = 0;
  std::function<HRESULT(IDataObject* data, IDropSource* source)> onDrag =
      [](IDataObject*, IDropSource*) { return DRAGDROP_S_DROP; };

 private:
  static HRESULT WINAPI Run(IDataObject* data, IDropSource* source, DWORD allowed, DWORD* effect) {
    EXPECT_TRUE(allowed == DROPEFFECT_COPY && effect);
    ++current->runs;
    current->dragged = data;
    const HRESULT result = current->onDrag(data, source);
    EXPECT_EQ(current->dragged, data) << "disconnected before the loop has ended";
    return result;
  }

  static HRESULT WINAPI Disconnect(IUnknown* object, DWORD) {
    EXPECT_EQ(object, std::exchange(current->dragged, nullptr));
    return S_OK;
  }

  static inline FakeDrag* current = nullptr;
  IDataObject* dragged = nullptr;  // until its receivers are disconnected
  ImportPatch run{"DoDragDrop", &Run};
  ImportPatch disconnect{"CoDisconnectObject", &Disconnect};
};
