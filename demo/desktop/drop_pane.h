// Takes files that are dragged here and lists their names.
#ifndef DEMO_DROP_PANE_H
#define DEMO_DROP_PANE_H

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <vector>

#include "call_log.h"
#include "text.h"
#include "window_base.h"

namespace demo {

// The names in a list of files, as the shell reads them.
std::vector<WideText> FileNames(HDROP drop);

class DropPane final : public WindowBase, private IDropTarget {
 public:
  explicit DropPane(CallLog& log) : log(log) {}
  ~DropPane() override;

  // OLE has to be initialised on this thread.
  bool Create(HWND parent);

  const std::vector<WideText>& Dropped() const { return dropped; }

 private:
  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Arrange();
  void Paint();
  void ShowNames();

  // A part of the pane: it lives as long as its window is registered as a target.
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
  std::vector<WideText> dropped;
  bool registered = false;
  bool takes = false;
  bool hovered = false;
};

}  // namespace demo

#endif
