// The root of the platform's component interfaces.
#pragma once

#include "windows.h"

#define STDMETHOD(name) virtual HRESULT STDMETHODCALLTYPE name
#define STDMETHOD_(type, name) virtual type STDMETHODCALLTYPE name
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define STDAPI extern "C" HRESULT STDAPICALLTYPE

struct IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
  virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
  virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
using LPUNKNOWN = IUnknown*;

struct IMalloc : IUnknown {
  virtual void* STDMETHODCALLTYPE Alloc(SIZE_T bytes) = 0;
  virtual void* STDMETHODCALLTYPE Realloc(void* block, SIZE_T bytes) = 0;
  virtual void STDMETHODCALLTYPE Free(void* block) = 0;
  virtual SIZE_T STDMETHODCALLTYPE GetSize(void* block) = 0;
  virtual int STDMETHODCALLTYPE DidAlloc(void* block) = 0;
  virtual void STDMETHODCALLTYPE HeapMinimize() = 0;
};
using LPMALLOC = IMalloc*;

WINSIM_API const IID IID_IUnknown;
WINSIM_API const IID IID_IMalloc;
WINSIM_API const GUID GUID_NULL;

WINSIM_API void* WINAPI CoTaskMemAlloc(SIZE_T bytes);
WINSIM_API void WINAPI CoTaskMemFree(void* block);
