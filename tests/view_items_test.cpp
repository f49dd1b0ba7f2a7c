// What both views do alike with the items that are there, and with the control that shows them.
#include <string>

#include "support/each_view.h"
#include "support/sent_messages.h"

namespace {

class ViewItems : public EachView {
 protected:
  std::string Boxes(const ItemHandleList& items) const {
    std::string boxes;
    for (const ItemHandle item : items) boxes += std::to_string(BoxOf(item));
    return boxes;
  }
};

INSTANTIATE_TEST_SUITE_P(Views, ViewItems, EACH_VIEW, ViewName);

TEST_P(ViewItems, AHandleOfNoItemTouchesNothing) {
  OpenWithItems(QVLS_CHECKBOXES);
  QVLTreeViewItem record;
  record.SetItemName(TEXT("changed"));
  record.SetSelected(true);
  ItemHandleList handles = {-1};
  if (IsList()) {
    // Their low halves look like a row, or like all of them. A tree asks its control about these.
    handles.insert(handles.end(), {0x100000000, 0x100000001, 0xFFFFFFFF, -0x100000000});
    handles.push_back(0x7FFFFFFF00000000);
  }
  for (const ItemHandle handle : handles) {
    SCOPED_TRACE(handle);
    const SentMessages sent;
    EXPECT_FALSE(view->UpdateItem(&record, handle) || view->DeleteItem(handle));
    EXPECT_EQ(view->GetParentItem(handle), -1);
    EXPECT_EQ(view->GetFirstChildItem(handle), -1);
    EXPECT_EQ(view->GetNextSiblingItem(handle), -1);
    EXPECT_FALSE(view->IsItemExpanded(handle));
    for (const bool on : {true, false}) {
      view->SetItemSelected(handle, on);
      view->SetItemChecked(handle, on);
    }
    EXPECT_FALSE(view->IsItemSelected(handle) || view->IsItemChecked(handle));
    EXPECT_EQ(view->GetItemClientPtr(handle), 0);
    EXPECT_TRUE(IsList() || view->GetItemClientPtr(0) == 0) << "the control does without an item 0";
    EXPECT_EQ(sent.all.size(), sent.Of(LVM_GETITEMW).size()) << "a list's row may be asked for";
    if (IsList()) view->EnsureVisible(handle);
  }
  EXPECT_EQ(Heard(), "");
  ItemHandleList items;
  EXPECT_EQ(view->GetItems(&items, true), 3);
  EXPECT_EQ(TextOf(a), TEXT("a"));
}

TEST_P(ViewItems, TheToolTipTakesWidthAndDelay) {
  Open(QVLS_INFOTIP);
  const auto tip = reinterpret_cast<HWND>(Ask(TreeOrList(TVM_GETTOOLTIPS, LVM_GETTOOLTIPS)));
  ASSERT_NE(tip, nullptr);
  view->SetToolTipWidth(70000);
  EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 70000);
  view->SetToolTipDelay(1234);
  EXPECT_EQ(SendMessageW(tip, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 1234);
  SentMessages sent;
  view->SetToolTipDelay(0x123456);
  EXPECT_EQ(sent.all.back().wParam, static_cast<WPARAM>(TTDT_INITIAL));
  EXPECT_EQ(sent.all.back().lParam, 0x3456);
  sent.Forget();
  sent.answers[TreeOrList(TVM_GETTOOLTIPS, LVM_GETTOOLTIPS)] = 0;
  view->SetToolTipWidth(1);
  view->SetToolTipDelay(1);
  EXPECT_EQ(sent.all.size(), 2u) << "a control without a tip is only asked";
}

TEST_P(ViewItems, ColoursGoToTheControl) {
  Open();
  EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)) && view->SetTextColor(RGB(4, 5, 6)));
  const auto colour = [this](UINT message) { return static_cast<COLORREF>(Ask(message)); };
  EXPECT_EQ(colour(TreeOrList(TVM_GETBKCOLOR, LVM_GETBKCOLOR)), RGB(1, 2, 3));
  EXPECT_EQ(colour(TreeOrList(TVM_GETBKCOLOR, LVM_GETTEXTBKCOLOR)), RGB(1, 2, 3));
  EXPECT_EQ(colour(TreeOrList(TVM_GETTEXTCOLOR, LVM_GETTEXTCOLOR)), RGB(4, 5, 6));
}

TEST_P(ViewItems, ImageListsGoToTheControlAndStayTheHosts) {
  Open(QVLS_CHECKBOXES);
  const auto shown = [this](WPARAM kind) {
    const LRESULT list = Ask(TreeOrList(TVM_GETIMAGELIST, LVM_GETIMAGELIST), kind);
    return reinterpret_cast<HIMAGELIST>(list);
  };
  EXPECT_EQ(ImageList_GetImageCount(shown(TVSIL_STATE)), TreeOrList(3, 2)) << "its own boxes";
  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 4, 1);
  for (const HIMAGELIST list : {HIMAGELIST{nullptr}, images}) {
    EXPECT_TRUE(view->SetImageList(list));
    EXPECT_EQ(shown(TreeOrList(TVSIL_NORMAL, LVSIL_SMALL)), list);
    EXPECT_TRUE(view->SetStateImageList(list));
    EXPECT_EQ(shown(TreeOrList(TVSIL_STATE, LVSIL_STATE)), list);
  }
  view->Destroy();
  EXPECT_TRUE(ImageList_Destroy(images)) << "the view took it along";
}

TEST_P(ViewItems, AnyBoxButTheEmptyOneIsCheckedAndTheTickedOneCounts) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    OpenWithItems(flags);
    const ItemHandleList items = {a, b, c, Insert(TEXT("d")), Insert(TEXT("e"))};
    for (const std::size_t place : {0, 1, 2, 3}) SetBox(items[place], static_cast<UINT>(place));
    SetBox(items[4], 2);
    client.Take();
    EXPECT_EQ(view->GetCheckedCount(), 2);
    EXPECT_EQ(view->GetCheckedItem(-1), -1);
    EXPECT_EQ(view->GetCheckedItem(0), items[2]);
    EXPECT_EQ(view->GetCheckedItem(1), items[4]);
    EXPECT_EQ(view->GetCheckedItem(2), -1);
    for (const ItemHandle item : items) EXPECT_EQ(view->IsItemChecked(item), item != items[1]);
    view->CheckAll();
    EXPECT_EQ(Boxes(items), "02232");
    view->UncheckAll();
    EXPECT_EQ(Boxes(items), "01131");
    for (const ItemHandle item : items) {
      view->SetItemChecked(item, true);
      EXPECT_EQ(BoxOf(item), 2u);
      view->SetItemChecked(item, false);
      EXPECT_EQ(BoxOf(item), 1u);
    }
    EXPECT_EQ(Heard().empty(), !IsList()) << "a tree tells nobody";
  }
}

// Answers a hit test as a control might: both controls' records begin with point and flags.
UINT answeredFlags;
LRESULT answeredItem;
LRESULT WINAPI AnswerHit(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != TVM_HITTEST && message != LVM_HITTEST) {
    return SendMessageW(window, message, wParam, lParam);
  }
  reinterpret_cast<TVHITTESTINFO*>(lParam)->flags = answeredFlags;
  return answeredItem;
}

TEST_P(ViewItems, EachNativeHitFlagHasItsOwn) {
  OpenWithItems();
  const ImportPatch patch("SendMessageW", &AnswerHit);
  struct {
    UINT native;
    std::uint32_t tree;
    std::uint32_t list;
  } const cases[] = {
      {0x01, 0x004, 0x004},
      {0x02, 0x028, 0x020},
      {0x04, 0x088, 0x080},
      {0x08, 0x040, 0x201},
      {0x10, 0x010, 0x002},
      {0x20, 0x100, 0x800},
      {0x40, 0x208, 0x400},
      {0x100, 0x001, 0},
      {0x200, 0x002, 0},
      {0x400, 0x800, 0},
      {0x800, 0x400, 0},
      {0x0E, 0x0E8, 0x2A1},
      {0, 0, 0},
      {~0xFFFU, 0, 0},
      {0x80, 0, 0},
  };
  answeredItem = b;
  const POINT point = {};
  for (const auto& row : cases) {
    answeredFlags = row.native;
    std::uint32_t flags = 0xFFFF;
    EXPECT_EQ(view->HitTest(&point, false, &flags), b);
    EXPECT_EQ(flags, TreeOrList(row.tree, row.list)) << row.native;
  }
}

RECT invalidated;
BOOL WINAPI NoteInvalidation(HWND, const RECT* rect, BOOL erase) {
  invalidated = rect ? *rect : RECT{-1, -1, -1, erase};
  return TRUE;
}

TEST_P(ViewItems, ShowHideAndRedrawActOnTheControlAlone) {
  Open();
  view->Hide();
  EXPECT_FALSE(IsWindowVisible(control));
  EXPECT_TRUE(IsWindowVisible(parent));
  view->Show();
  EXPECT_TRUE(IsWindowVisible(control));
  const ImportPatch patch("InvalidateRect", &NoteInvalidation);
  view->Redraw();
  EXPECT_TRUE(invalidated.left == -1 && invalidated.bottom == TRUE);
}

}  // namespace
