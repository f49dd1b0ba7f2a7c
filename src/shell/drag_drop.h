// The drag source: hands a list of file names to the system's drag loop, as copies of files only.
#pragma once

#include "core/qvl.h"

#include <ole2.h>

// Drop source and data object of one drag. It lives on the stack of the flow that drags and counts
// no references: what DoDragDrop receives is valid until DoDragDrop returns, and only the blocks
// that GetData hands over, which are the receiver's, last longer.
//
// The one format is CF_HDROP in global memory: a DROPFILES record and behind it the names, each
// with its terminating null, and one null more. A name counts up to its first null.
class QVLDragDrop : public IDropSource, public IDataObject {
 public:
  QVLDragDrop() = default;
  virtual ~QVLDragDrop() = default;
  QVLDragDrop(const QVLDragDrop&) = delete;
  QVLDragDrop& operator=(const QVLDragDrop&) = delete;

  // Drags `names`, a list that outlives the call, until the drop or the cancel. False if the
  // system could not drag; a drop and a refusal look the same here. Does not touch `view`, which
  // may be gone afterwards.
  bool RunDrag(IQVLTreeView* view, FileNameList* names);

  // Both bases. Asked through either, IUnknown is the drop source.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // IDropSource. Escape or the right button cancels, letting go of the left button drops.
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keyState) override;
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override;

  // IDataObject. GetData makes a new block at every call, with the message position of that
  // moment, and serves every aspect; without memory it answers E_OUTOFMEMORY.
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                    DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** advises) override;

 private:
  IQVLTreeView* startedBy = nullptr;
  FileNameList* fileNames = nullptr;
};
