// Drag and drop. A drag ends inside DoDragDrop: cancelled, or as the steering says.
#include "ole.h"

#include <shlobj.h>
#include <winsim.h>

#include <utility>

namespace winsim {
namespace {

int initializations = 0;

DragScript& Script() {
  static DragScript script;
  return script;
}

HRESULT Cancel(IDropSource* source, DWORD* effect) {
  *effect = DROPEFFECT_NONE;
  return source->QueryContinueDrag(TRUE, MK_LBUTTON);
}

}  // namespace

void SetDragScript(DragScript script) { Script() = std::move(script); }

void ForgetDragScript() { Script() = nullptr; }

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
  return Cancel(source, effect);
}

// No receiver is in another process.
HRESULT WINAPI CoDisconnectObject(IUnknown* object, DWORD) { return object ? S_OK : E_INVALIDARG; }

// The one definition of each identifier that the platform publishes.
const IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDataObject = {0x0000010E, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropSource = {0x00000121, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropTarget = {0x00000122, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IShellFolder = {0x000214E6, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu = {0x000214E4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu2 = {0x000214F4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
