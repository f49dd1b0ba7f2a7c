// What the system's drag loop and a receiver get from a dragged selection.

#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "support/fake_drag.h"
#include "support/import_patch.h"
#include "support/shell_test.h"

namespace {

using Bytes = std::vector<BYTE>;
using Text = std::basic_string<WCHAR>;

DWORD messagePosition = 0;
DWORD WINAPI MessagePosition() { return messagePosition; }

// The global memory that the library takes: counted, filled with rubbish, or refused.
struct FakeMemory {
  static inline SIZE_T size = 0;
  static inline int held = 0;  // blocks and locks
  static inline bool failAlloc = false;
  static inline bool failLock = false;

  static HGLOBAL WINAPI Alloc(UINT flags, SIZE_T wanted) {
    EXPECT_EQ(flags, 0u);
    if (failAlloc) return nullptr;
    size = wanted;
    ++held;
    const HGLOBAL block = GlobalAlloc(flags, wanted);
    std::memset(block, 0xCD, wanted);  // a fixed block is its own address
    return block;
  }
  static HGLOBAL WINAPI Free(HGLOBAL block) {
    --held;
    return GlobalFree(block);
  }
  static LPVOID WINAPI Lock(HGLOBAL block) {
    if (failLock) return nullptr;
    ++held;
    return GlobalLock(block);
  }
  static BOOL WINAPI Unlock(HGLOBAL block) {
    --held;
    return GlobalUnlock(block);
  }

  ImportPatch alloc{"GlobalAlloc", &Alloc};
  ImportPatch free{"GlobalFree", &Free};
  ImportPatch lock{"GlobalLock", &Lock};
  ImportPatch unlock{"GlobalUnlock", &Unlock};
};

FORMATETC Format(int format, DWORD medium, DWORD aspect = DVASPECT_CONTENT) {
  return {static_cast<CLIPFORMAT>(format), nullptr, aspect, -1, medium};
}

// A block that the receiver owns, as the bytes that the library asked for.
Bytes TakeBlock(IDataObject* data) {
  FORMATETC format = Format(CF_HDROP, TYMED_HGLOBAL);
  STGMEDIUM medium = {};
  medium.pUnkForRelease = data;
  EXPECT_EQ(data->GetData(&format, &medium), S_OK);
  EXPECT_EQ(medium.tymed, static_cast<DWORD>(TYMED_HGLOBAL));
  EXPECT_EQ(medium.pUnkForRelease, nullptr);
  const auto* bytes = static_cast<const BYTE*>(medium.hGlobal);
  Bytes block(bytes, bytes + FakeMemory::size);
  FakeMemory::Free(medium.hGlobal);
  return block;
}

class DragDropTest : public EachSelectionView {
 protected:
  // Drags `names` and runs `check` inside the system's loop.
  template <class Check>
  void Drag(const FileNameList& names, Check check) {
    AnswerWith(names);
    drag.onDrag = [&](IDataObject* data, IDropSource* source) {
      check(data, source);
      return DRAGDROP_S_DROP;
    };
    drag.runs = 0;
    BeginDrag(a);
    ASSERT_EQ(drag.runs, 1);
    EXPECT_EQ(FakeMemory::held, 0);
  }

  FakeDrag drag;
  FakeMemory memory;
  ImportPatch position{"GetMessagePos", &MessagePosition};
};

INSTANTIATE_TEST_SUITE_P(Views, DragDropTest, EACH_VIEW, ViewName);

TEST_P(DragDropTest, TheBlockIsWrittenByteForByte) {
  messagePosition = (70u << 16) | 300u;
  Drag({TEXT("a"), TEXT("bc")}, [](IDataObject* data, IDropSource*) {
    const Bytes expected = {0x14, 0, 0, 0, 0x2C, 1, 0, 0, 0x46, 0, 0,    0, 0, 0, 0, 0,
                            1,    0, 0, 0, 0x61, 0, 0, 0, 0x62, 0, 0x63, 0, 0, 0, 0, 0};
    EXPECT_EQ(TakeBlock(data), expected);

    // Another block, with the position of its own moment: left of and above the first screen.
    messagePosition = 0xFFFE8000;
    Bytes second = expected;
    const BYTE negative[] = {0x00, 0x80, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF};
    std::copy(std::begin(negative), std::end(negative), second.begin() + 4);
    EXPECT_EQ(TakeBlock(data), second);
  });
}

TEST_P(DragDropTest, EveryNameStandsInTheBlockWithItsNull) {
  const Text longName(32000, WCHAR('n'));
  const Text surrogates = {WCHAR(0xD83D), WCHAR(0xDCC4), WCHAR('x')};
  const Text null(1, WCHAR());
  const Text one = TEXT("a");
  const std::pair<FileNameList, Text> cases[] = {
      {{Text()}, null + null},
      {{one, Text(), one}, one + null + null + one + null + null},
      {{TEXT("C:\\")}, TEXT("C:\\") + null + null},
      {{surrogates, longName}, surrogates + null + longName + null + null},
      {{one + null + TEXT("b")}, one + null + null},
  };
  for (const auto& [names, expected] : cases) {
    Drag(names, [&expected = expected](IDataObject* data, IDropSource*) {
      const Bytes block = TakeBlock(data);
      ASSERT_EQ(block.size(), 20 + 2 * expected.size());
      EXPECT_EQ(std::memcmp(block.data() + 20, expected.data(), 2 * expected.size()), 0);
    });
  }
}

TEST_P(DragDropTest, BothBasesAnswerForTheOneObject) {
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
      EXPECT_EQ(base->AddRef(), 1u);
      EXPECT_EQ(base->Release(), 1u);
      EXPECT_EQ(base->Release(), 1u);
    }
    EXPECT_FALSE(TakeBlock(data).empty());
  });
}

TEST_P(DragDropTest, ButtonsAndEscapeDecideTheDrag) {
  Drag({TEXT("a")}, [](IDataObject*, IDropSource* source) {
    const auto decide = [=](BOOL escape, DWORD keys) {
      return source->QueryContinueDrag(escape, keys);
    };
    EXPECT_EQ(decide(TRUE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(decide(2, 0), DRAGDROP_S_CANCEL);
    EXPECT_EQ(decide(FALSE, MK_LBUTTON | MK_RBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(decide(FALSE, MK_LBUTTON | MK_CONTROL | MK_SHIFT), S_OK);
    EXPECT_EQ(decide(FALSE, MK_CONTROL | MK_MBUTTON), DRAGDROP_S_DROP);
    for (const DWORD effect : {DROPEFFECT_NONE, DROPEFFECT_COPY, DROPEFFECT_MOVE}) {
      EXPECT_EQ(source->GiveFeedback(effect), DRAGDROP_S_USEDEFAULTCURSORS);
    }
  });
}

TEST_P(DragDropTest, FormatsAreAnsweredAsTheTableSays) {
  Drag({TEXT("a")}, [](IDataObject* data, IDropSource*) {
    const struct {
      FORMATETC format;
      HRESULT query;
      HRESULT get;
    } cases[] = {
        {Format(CF_HDROP, TYMED_HGLOBAL | TYMED_FILE | TYMED_ISTREAM), S_OK, S_OK},
        {Format(CF_HDROP, TYMED_HGLOBAL, DVASPECT_ICON), DV_E_DVASPECT, S_OK},
        {Format(CF_HDROP, TYMED_HGLOBAL, DVASPECT_CONTENT | DVASPECT_ICON), DV_E_DVASPECT, S_OK},
        {Format(CF_HDROP, TYMED_ISTREAM), DV_E_TYMED, DV_E_TYMED},
        {Format(CF_UNICODETEXT, TYMED_HGLOBAL, DVASPECT_ICON), DV_E_FORMATETC, DV_E_FORMATETC},
        {Format(CF_UNICODETEXT, TYMED_FILE), DV_E_TYMED, DV_E_TYMED},
    };
    for (auto test : cases) {
      EXPECT_EQ(data->QueryGetData(&test.format), test.query);
      STGMEDIUM medium = {};
      EXPECT_EQ(data->GetData(&test.format, &medium), test.get);
      EXPECT_EQ(medium.hGlobal != nullptr, test.get == S_OK);
      if (medium.hGlobal) FakeMemory::Free(medium.hGlobal);
    }
  });
}

TEST_P(DragDropTest, WhatIsNotOfferedIsRefused) {
  Drag({TEXT("a")}, [](IDataObject* data, IDropSource*) {
    DVTARGETDEVICE device = {};
    FORMATETC format = {CF_HDROP, &device, DVASPECT_ICON, 7, TYMED_FILE};
    FORMATETC canonical = {};
    EXPECT_EQ(data->GetCanonicalFormatEtc(&format, &canonical), DATA_S_SAMEFORMATETC);
    EXPECT_EQ(canonical.cfFormat, CF_HDROP);
    EXPECT_EQ(canonical.ptd, &device);
    EXPECT_EQ(canonical.dwAspect, static_cast<DWORD>(DVASPECT_ICON));
    EXPECT_EQ(canonical.lindex, 7);
    EXPECT_EQ(canonical.tymed, static_cast<DWORD>(TYMED_FILE));

    STGMEDIUM medium = {};
    DWORD connection = 0;
    IEnumFORMATETC* formats = nullptr;
    IEnumSTATDATA* advises = nullptr;
    EXPECT_EQ(data->GetDataHere(&format, &medium), E_UNEXPECTED);
    EXPECT_EQ(data->SetData(&format, &medium, FALSE), E_NOTIMPL);
    EXPECT_EQ(data->EnumFormatEtc(DATADIR_GET, &formats), E_NOTIMPL);
    EXPECT_EQ(data->DAdvise(&format, 0, nullptr, &connection), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->DUnadvise(1), OLE_E_ADVISENOTSUPPORTED);
    EXPECT_EQ(data->EnumDAdvise(&advises), OLE_E_ADVISENOTSUPPORTED);
  });
}

TEST_P(DragDropTest, ABlockThatCannotBeHadIsRefusedAndTheDragGoesOn) {
  Drag({TEXT("a")}, [](IDataObject* data, IDropSource*) {
    FORMATETC format = Format(CF_HDROP, TYMED_HGLOBAL);
    for (bool* failure : {&FakeMemory::failAlloc, &FakeMemory::failLock}) {
      *failure = true;
      STGMEDIUM medium = {};
      EXPECT_EQ(data->GetData(&format, &medium), E_OUTOFMEMORY);
      EXPECT_EQ(medium.tymed, 0u);
      EXPECT_EQ(medium.hGlobal, nullptr);
      EXPECT_EQ(FakeMemory::held, 0);
      *failure = false;
    }
    EXPECT_EQ(TakeBlock(data).size(), 26u);
  });
}

}  // namespace
