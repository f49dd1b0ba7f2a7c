// What the system's drag loop and a receiver get from a dragged selection.

#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <string>
#include <utility>

#include "support/fake_drag.h"
#include "support/import_patch.h"
#include "support/shell_test.h"

namespace {

using Text = std::basic_string<WCHAR>;

FORMATETC Format(int format, DWORD medium, DWORD aspect = DVASPECT_CONTENT) {
  return {static_cast<CLIPFORMAT>(format), nullptr, aspect, -1, medium};
}

FORMATETC files = Format(CF_HDROP, TYMED_HGLOBAL);

class DragDropTest : public EachSelectionView {
 protected:
  void TearDown() override {
    EachSelectionView::TearDown();
    EXPECT_EQ(held, 0);
  }

  // Drags `names` and calls `check` inside the system's loop.
  template <class Check>
  void Drag(const FileNameList& names, Check check) {
    AnswerWith(names);
    drag.onDrag = [&](IDataObject* data, IDropSource* source) {
      check(data, source);
      return DRAGDROP_S_DROP;
    };
    BeginDrag(a);
    EXPECT_EQ(std::exchange(drag.runs, 0), 1);
  }

  // A block that the receiver owns: all that the library asked for, as characters.
  static Text TakeBlock(IDataObject* data) {
    STGMEDIUM medium = {};
    medium.pUnkForRelease = data;
    EXPECT_EQ(data->GetData(&files, &medium), S_OK);
    EXPECT_TRUE(medium.tymed == TYMED_HGLOBAL && !medium.pUnkForRelease);
    Text block(static_cast<const WCHAR*>(medium.hGlobal), size / sizeof(WCHAR));
    Free(medium.hGlobal);
    return block;
  }

  static HGLOBAL WINAPI Alloc(UINT flags, SIZE_T wanted) {
    EXPECT_EQ(flags, 0u);
    if (noBlock) return nullptr;
    ++held;
    return std::memset(GlobalAlloc(flags, size = wanted), 0xCD, wanted);  // fixed: its own address
  }
  static HGLOBAL WINAPI Free(HGLOBAL block) {
    --held;
    return GlobalFree(block);
  }
  static LPVOID WINAPI Lock(HGLOBAL block) {
    held += !noLock;
    return noLock ? nullptr : GlobalLock(block);
  }
  static BOOL WINAPI Unlock(HGLOBAL block) {
    --held;
    return GlobalUnlock(block);
  }
  static DWORD WINAPI MessagePosition() { return messagePosition; }

  // The library's global memory: counted with its locks, filled with rubbish, or refused.
  static inline SIZE_T size = 0;
  static inline int held = 0;
  static inline bool noBlock = false;
  static inline bool noLock = false;
  static inline DWORD messagePosition = 0;

  FakeDrag drag;
  const ImportPatch patches[5] = {{"GetMessagePos", &MessagePosition},
                                  {"GlobalAlloc", &Alloc},
                                  {"GlobalFree", &Free},
                                  {"GlobalLock", &Lock},
                                  {"GlobalUnlock", &Unlock}};
};

INSTANTIATE_TEST_SUITE_P(Views, DragDropTest, kEachView, ViewName);

TEST_P(DragDropTest, BlockHoldsThePositionOfItsMomentAndTheNames) {
  const Text null(1, WCHAR());
  const Text one = TEXT("a");
  const Text surrogates = {WCHAR(0xD83D), WCHAR(0xDCC4), WCHAR('x')};
  const Text longName(32000, WCHAR('n'));
  const struct {
    FileNameList names;
    Text text;
  } cases[] = {
      {{one}, one + null + null},
      {{Text()}, null + null},
      {{one, Text(), one}, one + null + null + one + null + null},
      {{surrogates, longName}, surrogates + null + longName + null + null},
      {{one + null + TEXT("b")}, one + null + null},
  };
  for (const auto& test : cases) {
    Drag(test.names, [&](IDataObject* data, IDropSource*) {
      messagePosition = (70u << 16) | 300u;
      const Text header = {0x14, 0, 0x12C, 0, 0x46, 0, 0, 0, 1, 0};
      EXPECT_TRUE(TakeBlock(data) == header + test.text);
      // Left of and above the first screen.
      messagePosition = 0xFFFE8000;
      const Text negative = {0x14, 0, 0x8000, 0xFFFF, 0xFFFE, 0xFFFF, 0, 0, 1, 0};
      EXPECT_TRUE(TakeBlock(data) == negative + test.text);
    });
  }
}

TEST_P(DragDropTest, BothInterfacesBelongToOneObjectWithoutACount) {
  Drag({TEXT("a")}, [](IDataObject* data, IDropSource* source) {
    IID almost = IID_IDataObject;
    ++almost.Data4[7];
    const std::pair<IID, void*> cases[] = {{IID_IUnknown, source},
                                           {IID_IDropSource, source},
                                           {IID_IDataObject, data},
                                           {IID_IDropTarget, nullptr},
                                           {almost, nullptr}};
    for (IUnknown* base : {static_cast<IUnknown*>(source), static_cast<IUnknown*>(data)}) {
      for (const auto& [wanted, expected] : cases) {
        void* given = source;
        EXPECT_EQ(base->QueryInterface(wanted, &given), expected ? S_OK : E_NOINTERFACE);
        EXPECT_EQ(given, expected);
      }
      EXPECT_TRUE(base->AddRef() == 1 && base->Release() == 1 && base->Release() == 1);
    }
    EXPECT_FALSE(TakeBlock(data).empty());
  });
}

TEST_P(DragDropTest, ButtonsAndEscapeDecideTheDrag) {
  Drag({TEXT("a")}, [](IDataObject*, IDropSource* source) {
    EXPECT_EQ(source->QueryContinueDrag(TRUE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(2, 0), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON | MK_RBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_LBUTTON | MK_CONTROL | MK_SHIFT), S_OK);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_CONTROL | MK_MBUTTON), DRAGDROP_S_DROP);
    EXPECT_EQ(source->GiveFeedback(DROPEFFECT_COPY), DRAGDROP_S_USEDEFAULTCURSORS);
  });
}

TEST_P(DragDropTest, OnlyFilesInMemoryAreOffered) {
  Drag({TEXT("a")}, [](IDataObject* data, IDropSource*) {
    struct {
      FORMATETC format;
      HRESULT query, get;
      bool noBlock = false, noLock = false;
    } cases[] = {
        {Format(CF_HDROP, TYMED_HGLOBAL | TYMED_FILE | TYMED_ISTREAM), S_OK, S_OK},
        {Format(CF_HDROP, TYMED_HGLOBAL, DVASPECT_ICON), DV_E_DVASPECT, S_OK},
        {Format(CF_HDROP, TYMED_HGLOBAL, DVASPECT_CONTENT | DVASPECT_ICON), DV_E_DVASPECT, S_OK},
        {Format(CF_HDROP, TYMED_ISTREAM), DV_E_TYMED, DV_E_TYMED},
        {Format(CF_UNICODETEXT, TYMED_HGLOBAL, DVASPECT_ICON), DV_E_FORMATETC, DV_E_FORMATETC},
        {Format(CF_UNICODETEXT, TYMED_FILE), DV_E_TYMED, DV_E_TYMED},
        {files, S_OK, E_OUTOFMEMORY, true, false},
        {files, S_OK, E_OUTOFMEMORY, false, true},
        {files, S_OK, S_OK},
    };
    for (auto& test : cases) {
      noBlock = test.noBlock;
      noLock = test.noLock;
      EXPECT_EQ(data->QueryGetData(&test.format), test.query);
      STGMEDIUM medium = {};
      EXPECT_EQ(data->GetData(&test.format, &medium), test.get);
      EXPECT_EQ(medium.tymed != 0, test.get == S_OK);
      EXPECT_EQ(medium.hGlobal != nullptr, test.get == S_OK);
      if (medium.hGlobal) Free(medium.hGlobal);
      EXPECT_EQ(held, 0);
    }

    DVTARGETDEVICE device = {};
    FORMATETC format = {CF_HDROP, &device, DVASPECT_ICON, 7, TYMED_FILE};
    FORMATETC canonical = {};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &canonical), DATA_S_SAMEFORMATETC);
    EXPECT_TRUE(canonical.cfFormat == CF_HDROP && canonical.ptd == &device &&
                canonical.dwAspect == DVASPECT_ICON && canonical.lindex == 7 &&
                canonical.tymed == TYMED_FILE);
    EXPECT_EQ(data->GetDataHere(&format, nullptr), E_UNEXPECTED);
    EXPECT_EQ(data->SetData(&format, nullptr, FALSE), E_NOTIMPL);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, nullptr), E_NOTIMPL);
    EXPECT_EQ(data->DAdvise(&format, 0, nullptr, nullptr), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->DUnadvise(1), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->EnumDAdvise(nullptr), OLE_E_ADVISENOTSUPPORTED);
  });
}

}  // namespace
