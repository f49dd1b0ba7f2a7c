// The base interfaces of components.
#pragma once

#include "windows.h"

struct IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
  virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
  virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

struct IMalloc : IUnknown {
  virtual void* STDMETHODCALLTYPE Alloc(SIZE_T bytes) = 0;
  virtual void* STDMETHODCALLTYPE Realloc(void* block, SIZE_T bytes) = 0;
  virtual void STDMETHODCALLTYPE Free(void* block) = 0;
  virtual SIZE_T STDMETHODCALLTYPE GetSize(void* block) = 0;
  virtual int STDMETHODCALLTYPE DidAlloc(void* block) = 0;
  virtual void STDMETHODCALLTYPE HeapMinimize() = 0;
};

WINSIM_API const IID IID_IUnknown;

WINSIM_API HRESULT WINAPI CoDisconnectObject(IUnknown* object, DWORD reserved);
