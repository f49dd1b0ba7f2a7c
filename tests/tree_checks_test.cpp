// Check boxes of a tree.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/host_window.h"
#include "support/sent_messages.h"

namespace {

constexpr UINT SHIFT = 12;  // of the state image in an item's state

class TreeChecks : public HostTest {
 protected:
  ItemHandle InsertChecked(const WCHAR* name, bool checked, int stateIndex = -1,
                           ItemHandle parent = -1) {
    QVLTreeViewItem item;
    item.SetItemName(name);
    item.SetChecked(checked);
    item.SetStateIndex(stateIndex);
    return view->InsertItem(&item, parent);
  }

  // The state image of an item, asked of the control itself.
  UINT BoxOf(ItemHandle item) const {
    const LRESULT state = SendMessageW(view->GetControlWindow(), TVM_GETITEMSTATE,
                                       static_cast<WPARAM>(item), TVIS_STATEIMAGEMASK);
    return (static_cast<UINT>(state) & TVIS_STATEIMAGEMASK) >> SHIFT;
  }

  void SetBox(ItemHandle item, UINT image) {
    TVITEMW change = {};
    change.mask = TVIF_STATE;
    change.hItem = reinterpret_cast<HTREEITEM>(item);
    change.state = image << SHIFT;
    change.stateMask = TVIS_STATEIMAGEMASK;
    SendMessageW(view->GetControlWindow(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
  }

  void Paint() {
    ShowWindow(host, SW_SHOWNOACTIVATE);
    view->Show();
    InvalidateRect(view->GetControlWindow(), nullptr, TRUE);
    UpdateWindow(view->GetControlWindow());
    PumpMessages();
  }

  // A row of items with the state images 0, 1, 2 and 3, and a collapsed branch under the last
  // whose child is empty (1).
  void OpenWithAllBoxes() {
    ASSERT_NE(CreateView(QVLS_CHECKBOXES), nullptr);
    for (UINT image = 0; image < 4; ++image) {
      items.push_back(Insert(TEXT("item")));
      SetBox(items.back(), image);
    }
    hidden = Insert(TEXT("hidden"), items.back());
    SetBox(hidden, 1);
    client.Take();
  }

  std::vector<UINT> Boxes() const {
    std::vector<UINT> boxes;
    for (const ItemHandle item : items) boxes.push_back(BoxOf(item));
    return boxes;
  }

  std::vector<ItemHandle> items;
  ItemHandle hidden = -1;
};

TEST_F(TreeChecks, BoxesTickedBeforeTheFirstPaintStayTicked) {
  ShowWindow(host, SW_HIDE);
  const HWND control = CreateView(QVLS_CHECKBOXES | QVLS_HASLINES);
  EXPECT_NE(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0), 0);
  EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE) & 0xFFFF, TVS_CHECKBOXES | TVS_HASLINES);
  const LRESULT images = SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0);
  const ItemHandle empty = InsertChecked(TEXT("empty"), false);
  const ItemHandle ticked = InsertChecked(TEXT("ticked"), true);
  const ItemHandle child = InsertChecked(TEXT("child"), true, -1, ticked);
  const ItemHandle later = InsertChecked(TEXT("later"), false);
  view->SetItemChecked(later, true);
  for (const char* when : {"before", "after the first paint", "after another"}) {
    EXPECT_EQ(BoxOf(empty), 1u) << when;
    EXPECT_EQ(BoxOf(ticked), 2u) << when;
    EXPECT_EQ(BoxOf(child), 2u) << when;
    EXPECT_EQ(BoxOf(later), 2u) << when;
    Paint();
  }
  EXPECT_EQ(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0), images);
}

TEST_F(TreeChecks, BoxesWithoutTheStyleDoNotAppear) {
  const HWND control = CreateView();
  EXPECT_EQ(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0), 0);
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), true)), 0u) << "checked needs boxes";
}

// The native style alone makes boxes, but records say nothing of them then.
TEST_F(TreeChecks, BoxesOfTheNativeStyle) {
  QVLTreeViewStyleExt ext;
  ext.SetStyle(TVS_CHECKBOXES);
  const HWND control = CreateView(0, &ext);
  EXPECT_NE(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0), 0);
  const ItemHandle item = InsertChecked(TEXT("a"), true);
  EXPECT_EQ(BoxOf(item), 1u);
  view->SetItemChecked(item, true);
  Paint();
  EXPECT_EQ(BoxOf(item), 2u);
}

TEST_F(TreeChecks, RecordSetsTheBox) {
  ASSERT_NE(CreateView(QVLS_CHECKBOXES), nullptr);
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), false, 1)), 1u) << "nothing is added to the index";
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), false, 2)), 2u);
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), true, 1)), 2u);
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), true, 0)), 2u);
  EXPECT_EQ(BoxOf(InsertChecked(TEXT("a"), false, 18)), 2u) << "four bits count";
}

TEST_F(TreeChecks, UpdateOnlyTicks) {
  ASSERT_NE(CreateView(QVLS_CHECKBOXES), nullptr);
  const ItemHandle item = InsertChecked(TEXT("a"), true);
  struct Row {
    bool checked;
    int stateIndex;
    UINT box;
  };
  for (const Row row : {Row{false, -1, 2}, Row{false, 1, 1}, Row{true, -1, 2}, Row{true, 1, 2},
                        Row{false, 0, 0}, Row{false, -1, 0}, Row{true, 0, 2}}) {
    QVLTreeViewItem record;
    record.SetChecked(row.checked);
    record.SetStateIndex(row.stateIndex);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    EXPECT_EQ(BoxOf(item), row.box) << row.checked << " " << row.stateIndex;
  }
}

TEST_F(TreeChecks, TwoTestsForATick) {
  OpenWithAllBoxes();
  const std::vector<bool> checked = {true, false, true, true};
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(view->IsItemChecked(items[i]), checked[i]) << "state image " << i;
  }
  EXPECT_FALSE(view->IsItemChecked(hidden));
  EXPECT_FALSE(view->IsItemChecked(-1));
  EXPECT_EQ(view->GetCheckedCount(), 1);
  EXPECT_EQ(view->GetCheckedItem(0), items[2]);
  EXPECT_EQ(view->GetCheckedItem(1), -1);
  EXPECT_EQ(view->GetCheckedItem(-1), -1);
}

TEST_F(TreeChecks, CheckAllAndUncheckAllChangeOneStateOfVisibleItems) {
  OpenWithAllBoxes();
  view->CheckAll();
  EXPECT_EQ(Boxes(), (std::vector<UINT>{0, 2, 2, 3}));
  EXPECT_EQ(BoxOf(hidden), 1u) << "inside a collapsed branch";
  EXPECT_EQ(view->GetCheckedCount(), 2);
  EXPECT_EQ(view->GetCheckedItem(0), items[1]);
  EXPECT_EQ(view->GetCheckedItem(1), items[2]);
  SetBox(hidden, 2);
  EXPECT_TRUE(view->IsItemChecked(hidden));
  EXPECT_EQ(view->GetCheckedCount(), 2) << "a hidden item does not count";
  view->UncheckAll();
  EXPECT_EQ(Boxes(), (std::vector<UINT>{0, 1, 1, 3}));
  EXPECT_EQ(BoxOf(hidden), 2u);
  view->ExpandItem(items[3], true);
  EXPECT_EQ(view->GetCheckedItem(0), hidden);
  view->UncheckAll();
  EXPECT_EQ(BoxOf(hidden), 1u);
  EXPECT_EQ(view->GetCheckedCount(), 0);
  client.Take();
}

TEST_F(TreeChecks, SetItemCheckedTellsNobody) {
  OpenWithAllBoxes();
  for (const ItemHandle item : items) {
    view->SetItemChecked(item, true);
    EXPECT_EQ(BoxOf(item), 2u);
    view->SetItemChecked(item, false);
    EXPECT_EQ(BoxOf(item), 1u);
  }
  view->CheckAll();
  view->UncheckAll();
  EXPECT_EQ(client.Take(), Lines());
  SentMessages sent;
  view->SetItemChecked(-1, true);
  view->IsItemChecked(-1);
  EXPECT_EQ(sent.all.size(), 0u);
  view->SetItemChecked(items[0], true);
  const auto changes = sent.Of(TVM_SETITEMW);
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].treeItem.mask, 8u);
  EXPECT_EQ(changes[0].treeItem.stateMask, 0xF000u);
  EXPECT_EQ(changes[0].treeItem.state, 0x2000u);
}

TEST_F(TreeChecks, TreeWithoutBoxes) {
  ASSERT_NE(CreateView(), nullptr);
  EXPECT_EQ(view->GetCheckedItem(0), -1) << "an empty tree";
  const ItemHandle item = Insert(TEXT("a"));
  EXPECT_TRUE(view->IsItemChecked(item));
  view->CheckAll();
  view->UncheckAll();
  EXPECT_EQ(BoxOf(item), 0u);
  EXPECT_EQ(view->GetCheckedCount(), 0);
  view->SetItemChecked(item, true);
  EXPECT_EQ(view->GetCheckedCount(), 1) << "the state counts, whatever the style";
}

// The images that the control made for the boxes are the view's to free; a host's are not.
TEST_F(TreeChecks, HostsStateImagesOutliveTheView) {
  const HWND control = CreateView(QVLS_CHECKBOXES);
  const auto boxes =
      reinterpret_cast<HIMAGELIST>(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0));
  EXPECT_GE(ImageList_GetImageCount(boxes), 3);
  const HIMAGELIST own = ImageList_Create(16, 16, ILC_COLOR32, 4, 1);
  EXPECT_TRUE(view->SetStateImageList(own));
  EXPECT_EQ(SendMessageW(control, TVM_GETIMAGELIST, TVSIL_STATE, 0),
            reinterpret_cast<LRESULT>(own));
  view->Destroy();
  EXPECT_TRUE(ImageList_Destroy(own)) << "the view took it along";
}

}  // namespace
