#include "shell/drag_drop.h"

#include "platform/owners.h"
#include "platform/screen_point.h"

#include <shlobj.h>

#include <algorithm>
#include <string>

namespace {

static_assert(sizeof(DROPFILES) == 20 && sizeof(WCHAR) == 2, "the block's layout is fixed");

SIZE_T LengthWithNull(const std::basic_string<WCHAR>& name) {
  return std::char_traits<WCHAR>::length(name.c_str()) + 1;
}

// Cannot overflow: every name is in memory already, together with its null.
SIZE_T BlockSize(const FileNameList& names) {
  SIZE_T characters = 1;
  for (const auto& name : names) characters += LengthWithNull(name);
  return sizeof(DROPFILES) + characters * sizeof(WCHAR);
}

// Fills a block of BlockSize(names) bytes.
void WriteBlock(void* block, POINT point, const FileNameList& names) {
  auto* header = static_cast<DROPFILES*>(block);
  header->pFiles = sizeof(DROPFILES);
  header->pt = point;
  header->fNC = FALSE;
  header->fWide = TRUE;

  auto* end = reinterpret_cast<WCHAR*>(header + 1);
  for (const auto& name : names) end = std::copy_n(name.c_str(), LengthWithNull(name), end);
  *end = 0;
}

HRESULT CheckFormat(const FORMATETC& format) {
  if ((format.tymed & TYMED_HGLOBAL) == 0) return DV_E_TYMED;
  if (format.cfFormat != CF_HDROP) return DV_E_FORMATETC;
  return S_OK;
}

}  // namespace

bool QVLDragDrop::RunDrag(IQVLTreeView* view, FileNameList* names) {
  startedBy = view;
  fileNames = names;
  DWORD effect = 0;
  const HRESULT result = DoDragDrop(this, this, DROPEFFECT_COPY, &effect);
  // From now on, a receiver in another process that keeps the data object gets errors.
  CoDisconnectObject(static_cast<IDataObject*>(this), 0);
  return SUCCEEDED(result);
}

HRESULT QVLDragDrop::QueryInterface(REFIID riid, void** object) {
  *object = nullptr;
  if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDropSource)) {
    *object = static_cast<IDropSource*>(this);
  } else if (IsEqualIID(riid, IID_IDataObject)) {
    *object = static_cast<IDataObject*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG QVLDragDrop::AddRef() { return 1; }

ULONG QVLDragDrop::Release() { return 1; }

HRESULT QVLDragDrop::QueryContinueDrag(BOOL escapePressed, DWORD keyState) {
  if (escapePressed || (keyState & MK_RBUTTON) != 0) return DRAGDROP_S_CANCEL;
  return (keyState & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
}

HRESULT QVLDragDrop::GiveFeedback(DWORD) { return DRAGDROP_S_USEDEFAULTCURSORS; }

HRESULT QVLDragDrop::GetData(FORMATETC* format, STGMEDIUM* medium) {
  const HRESULT check = CheckFormat(*format);
  if (check != S_OK) return check;

  GlobalBlock block(GlobalAlloc(GMEM_FIXED, BlockSize(*fileNames)));
  if (!block) return E_OUTOFMEMORY;
  const POINT point = LastMessagePoint();
  {
    const GlobalLocker lock(block.get());
    if (!lock.Data()) return E_OUTOFMEMORY;
    WriteBlock(lock.Data(), point, *fileNames);
  }

  medium->tymed = TYMED_HGLOBAL;
  medium->hGlobal = block.release();
  medium->pUnkForRelease = nullptr;
  return S_OK;
}

HRESULT QVLDragDrop::GetDataHere(FORMATETC*, STGMEDIUM*) { return E_UNEXPECTED; }

HRESULT QVLDragDrop::QueryGetData(FORMATETC* format) {
  const HRESULT check = CheckFormat(*format);
  if (check != S_OK) return check;
  return format->dwAspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
}

HRESULT QVLDragDrop::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
  *canonical = *format;
  return DATA_S_SAMEFORMATETC;
}

HRESULT QVLDragDrop::SetData(FORMATETC*, STGMEDIUM*, BOOL) { return E_NOTIMPL; }

HRESULT QVLDragDrop::EnumFormatEtc(DWORD, IEnumFORMATETC**) { return E_NOTIMPL; }

HRESULT QVLDragDrop::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) {
  return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT QVLDragDrop::DUnadvise(DWORD) { return OLE_E_ADVISENOTSUPPORTED; }

HRESULT QVLDragDrop::EnumDAdvise(IEnumSTATDATA**) { return OLE_E_ADVISENOTSUPPORTED; }
