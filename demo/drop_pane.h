// Takes files that are dragged here and lists their names.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "call_log.h"
#include "window_base.h"

namespace demo {

// The names in a list of files, as the shell reads them.
std::vector<std::wstring> FileNames(HDROP drop);

class DropPane final : public WindowBase, private IDropTarget {
 public:
  explicit DropPane(CallLog& callLog) : log(callLog) {}
  ~DropPane() override;

  // OLE must be initialised on this thread.
  bool Create(HWND parent);

  const std::vector<std::wstring>& Dropped() const { return dropped; }

 private:
  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Arrange();
  void Paint();
  void ShowNames();

  // The drop target is a part of the pane, which outlives the registration of its window.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL point,
                                      DWORD* effect) override;
  HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL point, DWORD* effect) override;
  HRESULT STDMETHODCALLTYPE DragLeave() override;
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL point,
                                 DWORD* effect) override;

  CallLog& log;
  HWND names = nullptr;
  std::vector<std::wstring> dropped;
  bool isRegistered = false;
  bool accepts = false;
  bool isHovered = false;
};

}  // namespace demo
