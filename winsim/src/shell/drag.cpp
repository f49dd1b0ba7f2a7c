#include "shell/drag.h"

#include <ole2.h>
#include <winsim.h>

#include <utility>

namespace winsim {
namespace {

int initializations = 0;

DragScript& Script() {
  static DragScript script;
  return script;
}

}  // namespace

void SetDragScript(DragScript script) { Script() = std::move(script); }

void ForgetDragScript() { Script() = nullptr; }

}  // namespace winsim

using namespace winsim;

HRESULT WINAPI OleInitialize(LPVOID) { return initializations++ == 0 ? S_OK : S_FALSE; }

void WINAPI OleUninitialize() { initializations -= initializations > 0 ? 1 : 0; }

// Runs the script of a test, or cancels the drag.
HRESULT WINAPI DoDragDrop(IDataObject* data, IDropSource* source, DWORD allowed, DWORD* effect) {
  if (!data || !source || !effect) return E_INVALIDARG;
  if (const DragScript script = Script()) return script(data, source, allowed, effect);
  if (initializations == 0) return CO_E_NOTINITIALIZED;
  *effect = DROPEFFECT_NONE;
  return source->QueryContinueDrag(TRUE, MK_LBUTTON);
}

// Every receiver of an object is in this process.
HRESULT WINAPI CoDisconnectObject(IUnknown* object, DWORD) { return object ? S_OK : E_INVALIDARG; }
