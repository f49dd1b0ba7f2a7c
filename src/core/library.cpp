// The library's entry point, and the two functions that create and destroy views.
#include "core/module_handle.h"
#include "core/proxy_view.h"
#include "core/qvl.h"
#include "vornutil.h"

#include <new>

HINSTANCE moduleHandle = nullptr;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    VornSDK::Util::UseLanguagePackLocale();
    moduleHandle = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

IQVLTreeView* GetIQVLTreeView() { return new (std::nothrow) QVLProxyView; }

void ReleaseIQVLTreeView(IQVLTreeView* view) { delete view; }
}
