// The drag source: passes a list of file names to the system's drag loop, as files to be copied.
#pragma once

#include "core/qvl.h"

#include <ole2.h>

// Drop source and data object of one drag. It lives on the stack of the operation that drags and
// counts no references: it is valid until DoDragDrop returns. Then receivers in other processes are
// disconnected; a receiver in the host's own process must have released it. Only the blocks of
// GetData live longer; they belong to the receiver.
//
// The only format is CF_HDROP in global memory: a DROPFILES record, then the names, each with its
// terminating null, and a final null. A name ends at its first null.
class QVLDragDrop : public IDropSource, public IDataObject {
 public:
  QVLDragDrop() = default;
  virtual ~QVLDragDrop() = default;
  QVLDragDrop(const QVLDragDrop&) = delete;
  QVLDragDrop& operator=(const QVLDragDrop&) = delete;

  // Drags `names`, which must outlive the call, until the drop or the cancel. False if the system
  // could not drag; the result is the same for a drop and a refusal. Does not use `view`, which may
  // have ended afterwards.
  bool RunDrag(IQVLTreeView* view, FileNameList* names);

  // IUnknown, for both bases. Through either base IUnknown is the drop source.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // IDropSource. Escape and the right button cancel; releasing the left button drops.
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escapePressed, DWORD keyState) override;
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override;

  // IDataObject. GetData makes a new block at each call, with the current message position, for
  // every aspect. Without memory it returns E_OUTOFMEMORY.
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
