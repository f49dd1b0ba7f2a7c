// Data transfer and drag and drop.
#pragma once

#include "objbase.h"

#define CF_UNICODETEXT 13
#define CF_HDROP 15

#define TYMED_HGLOBAL 1
#define TYMED_FILE 2
#define TYMED_ISTREAM 4

#define DVASPECT_CONTENT 1
#define DVASPECT_ICON 4

#define DATADIR_GET 1

#define DROPEFFECT_NONE 0
#define DROPEFFECT_COPY 1
#define DROPEFFECT_MOVE 2

using CLIPFORMAT = WORD;

struct DVTARGETDEVICE {
  DWORD tdSize;
  WORD tdDriverNameOffset;
  WORD tdDeviceNameOffset;
  WORD tdPortNameOffset;
  WORD tdExtDevmodeOffset;
  BYTE tdData[1];
};

struct FORMATETC {
  CLIPFORMAT cfFormat;
  DVTARGETDEVICE* ptd;
  DWORD dwAspect;
  LONG lindex;
  DWORD tymed;
};

struct STGMEDIUM {
  DWORD tymed;
  union {
    HBITMAP hBitmap;
    HGLOBAL hGlobal;
    LPWSTR lpszFileName;
  };
  IUnknown* pUnkForRelease;
};

static_assert(sizeof(FORMATETC) == 32 && sizeof(STGMEDIUM) == 24);

struct IEnumFORMATETC;
struct IEnumSTATDATA;
struct IAdviseSink;
struct IBindCtx;

struct IDataObject : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) = 0;
  virtual HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) = 0;
  virtual HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                            DWORD* connection) = 0;
  virtual HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** connections) = 0;
};

struct IDropSource : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keyState) = 0;
  virtual HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) = 0;
};

WINSIM_API const IID IID_IDataObject;
WINSIM_API const IID IID_IDropSource;
WINSIM_API const IID IID_IDropTarget;

WINSIM_API HRESULT WINAPI OleInitialize(LPVOID reserved);
WINSIM_API void WINAPI OleUninitialize();
WINSIM_API HRESULT WINAPI DoDragDrop(IDataObject* data, IDropSource* source, DWORD allowed,
                                     DWORD* effect);
