// Drag and drop. A drag runs to its end inside DoDragDrop, along the way that the steering says.
#include "ole.h"

#include <shlobj.h>
#include <winsim.h>

#include <map>
#include <utility>

#include "window.h"

namespace winsim {
namespace {

int initializations = 0;
IDropTarget* steeredTarget = nullptr;

DragScript& Script() {
  static DragScript script;
  return script;
}

std::map<HWND, IDropTarget*>& Targets() {
  static std::map<HWND, IDropTarget*> targets;
  return targets;
}

HRESULT Cancel(IDropSource* source, DWORD* effect) {
  *effect = DROPEFFECT_NONE;
  return source->QueryContinueDrag(TRUE, MK_LBUTTON);
}

// Enters the target, moves once more in it, and lets go.
HRESULT DragOnto(IDropTarget* target, IDataObject* data, IDropSource* source, DWORD allowed,
                 DWORD* effect) {
  POINTL point = {};
  GetCursorPos(&point);
  DWORD wanted = allowed;
  target->DragEnter(data, MK_LBUTTON, point, &wanted);
  source->GiveFeedback(wanted & allowed);
  HRESULT step = source->QueryContinueDrag(FALSE, MK_LBUTTON);
  if (step == S_OK) {
    wanted = allowed;
    target->DragOver(MK_LBUTTON, point, &wanted);
    source->GiveFeedback(wanted & allowed);
    step = source->QueryContinueDrag(FALSE, 0);
  }
  *effect = wanted & allowed;
  if (step == DRAGDROP_S_DROP && *effect != DROPEFFECT_NONE) {
    target->Drop(data, 0, point, effect);
  } else {
    target->DragLeave();
    *effect = DROPEFFECT_NONE;
  }
  return step;
}

}  // namespace

void SetDragTarget(IDropTarget* target) { steeredTarget = target; }

void SetDragScript(DragScript script) { Script() = std::move(script); }

void ForgetDragScript() {
  Script() = nullptr;
  steeredTarget = nullptr;
}

void ForgetDropTargetOf(HWND window) {
  if (const auto node = Targets().extract(window)) {
    node.mapped()->Release();
  }
}

}  // namespace winsim

using namespace winsim;

HRESULT WINAPI OleInitialize(LPVOID) { return initializations++ == 0 ? S_OK : S_FALSE; }

void WINAPI OleUninitialize() { initializations -= initializations > 0 ? 1 : 0; }

HRESULT WINAPI DoDragDrop(IDataObject* data, IDropSource* source, DWORD allowed, DWORD* effect) {
  if (!data || !source || !effect) {
    return E_INVALIDARG;
  }
  if (const DragScript script = Script()) {
    return script(data, source, allowed, effect);
  }
  if (initializations == 0) {
    return CO_E_NOTINITIALIZED;
  }
  return steeredTarget ? DragOnto(steeredTarget, data, source, allowed, effect)
                       : Cancel(source, effect);
}

HRESULT WINAPI RegisterDragDrop(HWND window, IDropTarget* target) {
  if (!FindWindow(window)) {
    return DRAGDROP_E_INVALIDHWND;
  }
  if (!Targets().emplace(window, target).second) {
    return DRAGDROP_E_ALREADYREGISTERED;
  }
  target->AddRef();
  return S_OK;
}

HRESULT WINAPI RevokeDragDrop(HWND window) {
  if (!FindWindow(window)) {
    return DRAGDROP_E_INVALIDHWND;
  }
  if (!Targets().contains(window)) {
    return DRAGDROP_E_NOTREGISTERED;
  }
  ForgetDropTargetOf(window);
  return S_OK;
}

void WINAPI ReleaseStgMedium(STGMEDIUM* medium) {
  if (medium->pUnkForRelease) {
    medium->pUnkForRelease->Release();
  } else if (medium->tymed == TYMED_HGLOBAL) {
    GlobalFree(medium->hGlobal);
  }
  *medium = {};
}

UINT WINAPI DragQueryFileW(HDROP drop, UINT index, LPWSTR name, UINT size) {
  const auto* block = reinterpret_cast<const BYTE*>(drop);
  const auto* header = reinterpret_cast<const DROPFILES*>(block);
  const auto* text = reinterpret_cast<const WCHAR*>(block + header->pFiles);
  UINT count = 0;
  for (; *text; ++count) {
    const UINT length = static_cast<UINT>(lstrlenW(text));
    if (count == index) {
      const std::u16string_view all(text, length);
      if (name && size > 0) {
        name[all.copy(name, size - 1)] = 0;
      }
      return length;
    }
    text += length + 1;
  }
  return index == 0xFFFFFFFF ? count : 0;
}

BOOL WINAPI DragQueryPoint(HDROP drop, POINT* point) {
  *point = reinterpret_cast<const DROPFILES*>(drop)->pt;
  return TRUE;
}

void WINAPI DragFinish(HDROP drop) { GlobalFree(drop); }

// The one definition of each identifier that the platform publishes.
const IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IMalloc = {0x00000002, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDataObject = {0x0000010E, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropSource = {0x00000121, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropTarget = {0x00000122, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IShellFolder = {0x000214E6, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu = {0x000214E4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu2 = {0x000214F4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const GUID GUID_NULL = {};
