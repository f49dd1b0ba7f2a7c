// What both views do alike with their items and their control.
#include <string>

#include "support/each_view.h"
#include "support/replaced_call.h"
#include "support/sent_messages.h"

namespace {

class ViewItems : public EachView {};

INSTANTIATE_TEST_SUITE_P(Views, ViewItems, kEachView, ViewName);

TEST_P(ViewItems, ToolTipTakesWidthAndDelay) {
  Open(QVLS_INFOTIP);
  const UINT getTip = TreeOrList(TVM_GETTOOLTIPS, LVM_GETTOOLTIPS);
  const auto tip = reinterpret_cast<HWND>(Ask(getTip));
  ASSERT_NE(tip, nullptr);
  view->SetToolTipWidth(70000);
  EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 70000);
  view->SetToolTipDelay(1234);
  EXPECT_EQ(SendMessageW(tip, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 1234);
  SentMessages sent;
  view->SetToolTipDelay(0x123456);
  EXPECT_EQ(sent.all.back().wParam, WPARAM{TTDT_INITIAL});
  EXPECT_EQ(sent.all.back().lParam, 0x3456);
  sent.Forget();
  sent.answers[getTip] = 0;
  view->SetToolTipWidth(1);
  view->SetToolTipDelay(1);
  EXPECT_EQ(sent.all.size(), 2u) << "a control without a tool tip";
}

TEST_P(ViewItems, ColorsAndImageListsGoToTheControlAndListsStayTheHosts) {
  Open(QVLS_CHECKBOXES);
  EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)) && view->SetTextColor(RGB(4, 5, 6)));
  const auto color = [this](UINT message) { return static_cast<COLORREF>(Ask(message)); };
  EXPECT_EQ(color(TreeOrList(TVM_GETBKCOLOR, LVM_GETBKCOLOR)), RGB(1, 2, 3));
  EXPECT_EQ(color(TreeOrList(TVM_GETBKCOLOR, LVM_GETTEXTBKCOLOR)), RGB(1, 2, 3));
  EXPECT_EQ(color(TreeOrList(TVM_GETTEXTCOLOR, LVM_GETTEXTCOLOR)), RGB(4, 5, 6));

  const auto shown = [this](WPARAM kind) {
    const LRESULT list = Ask(TreeOrList(TVM_GETIMAGELIST, LVM_GETIMAGELIST), kind);
    return reinterpret_cast<HIMAGELIST>(list);
  };
  EXPECT_NE(shown(TVSIL_STATE), nullptr) << "its own boxes";
  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 4, 1);
  for (const HIMAGELIST list : {HIMAGELIST{nullptr}, images}) {
    EXPECT_TRUE(view->SetImageList(list) && view->SetStateImageList(list));
    EXPECT_EQ(shown(TreeOrList(TVSIL_NORMAL, LVSIL_SMALL)), list);
    EXPECT_EQ(shown(TreeOrList(TVSIL_STATE, LVSIL_STATE)), list);
  }
  view->Destroy();
  EXPECT_TRUE(ImageList_Destroy(images)) << "the view has destroyed it";
}

TEST_P(ViewItems, EveryStateImageButTheEmptyBoxIsCheckedAndTheCheckedBoxCounts) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    OpenWithItems(flags);
    const ItemHandleList items = {a, b, c, Insert(TEXT("d")), Insert(TEXT("e"))};
    const auto boxes = [&] {
      std::string images;
      for (const ItemHandle item : items) images += std::to_string(BoxOf(item));
      return images;
    };
    for (const std::size_t i : {0, 1, 2, 3}) SetBox(items[i], static_cast<UINT>(i));
    SetBox(items[4], 2);
    client.Take();
    EXPECT_EQ(view->GetCheckedCount(), 2);
    EXPECT_EQ(view->GetCheckedItem(-1), -1);
    EXPECT_EQ(view->GetCheckedItem(0), items[2]);
    EXPECT_EQ(view->GetCheckedItem(1), items[4]);
    EXPECT_EQ(view->GetCheckedItem(2), -1);
    for (const ItemHandle item : items) EXPECT_EQ(view->IsItemChecked(item), item != items[1]);
    view->CheckAll();
    EXPECT_EQ(boxes(), "02232");
    view->UncheckAll();
    EXPECT_EQ(boxes(), "01131");
    for (const bool checked : {true, false}) {
      for (const ItemHandle item : items) view->SetItemChecked(item, checked);
      EXPECT_EQ(boxes(), checked ? "22222" : "11111");
    }
    EXPECT_EQ(Callbacks().empty(), !IsList()) << "a tree does not report check boxes";
  }
}

TEST_P(ViewItems, EachNativeHitFlagHasItsOwn) {
  OpenWithItems();
  struct {
    UINT native;
    std::uint32_t tree;
    std::uint32_t list;
  } const cases[] = {{0x01, 0x004, 0x004},
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
                     {0x80, 0, 0}};
  const POINT point = {};
  for (const auto& row : cases) {
    // Both controls' records begin with point and flags.
    const auto answer = [&](HWND to, UINT message, WPARAM wParam, LPARAM lParam) {
      if (message != TVM_HITTEST && message != LVM_HITTEST) {
        return SendMessageW(to, message, wParam, lParam);
      }
      reinterpret_cast<TVHITTESTINFO*>(lParam)->flags = row.native;
      return LRESULT{b};
    };
    const Replaced patch("SendMessageW", &SendMessageW, answer);
    std::uint32_t flags = 0xFFFF;
    EXPECT_EQ(view->HitTest(&point, false, &flags), b);
    EXPECT_EQ(flags, TreeOrList(row.tree, row.list)) << row.native;
  }
}

TEST_P(ViewItems, ShowHideAndRedrawConcernTheControlAlone) {
  Open();
  view->Hide();
  EXPECT_FALSE(IsWindowVisible(control));
  EXPECT_TRUE(IsWindowVisible(parent));
  view->Show();
  EXPECT_TRUE(IsWindowVisible(control));
  int whole = 0;
  const Replaced note("InvalidateRect", &InvalidateRect, [&](HWND, const RECT* rect, BOOL erase) {
    return whole += !rect && erase, TRUE;
  });
  view->Redraw();
  EXPECT_EQ(whole, 1);
}

}  // namespace
