// Check boxes of a tree.
#include <vector>

#include "support/tree_gestures.h"

namespace {

constexpr UINT SHIFT = 12;  // of the state image in an item's state

class TreeChecks : public TreeTest {
 protected:
  ItemHandle InsertChecked(bool checked, int stateIndex = -1) {
    QVLTreeViewItem item;
    item.SetChecked(checked);
    item.SetStateIndex(stateIndex);
    return view->InsertItem(&item, -1);
  }

  // The state image of an item, asked of the control itself.
  UINT BoxOf(ItemHandle item) const {
    const LRESULT state = Ask(TVM_GETITEMSTATE, static_cast<WPARAM>(item), TVIS_STATEIMAGEMASK);
    return (static_cast<UINT>(state) & TVIS_STATEIMAGEMASK) >> SHIFT;
  }

  void SetBox(ItemHandle item, UINT image) {
    TVITEMW change = {};
    change.mask = TVIF_STATE;
    change.hItem = Native(item);
    change.state = image << SHIFT;
    change.stateMask = TVIS_STATEIMAGEMASK;
    Ask(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
  }

  void Paint() {
    ShowWindow(host, SW_SHOWNOACTIVATE);
    InvalidateRect(control, nullptr, TRUE);
    UpdateWindow(control);
    PumpMessages();
  }

  LRESULT StateImages() const { return Ask(TVM_GETIMAGELIST, TVSIL_STATE); }

  // A row of items with the state images 0, 1, 2 and 3, and a collapsed branch under the last
  // whose child is empty (1).
  void OpenWithAllBoxes() {
    OpenEmpty(QVLS_CHECKBOXES);
    for (UINT image = 0; image < 4; ++image) {
      items.push_back(Insert(TEXT("item")));
      SetBox(items.back(), image);
    }
    hidden = Insert(TEXT("hidden"), items.back());
    SetBox(hidden, 1);
    client.Take();
  }

  // The state images of the items and of the hidden one.
  std::vector<UINT> Boxes() const {
    std::vector<UINT> boxes;
    for (const ItemHandle item : items) boxes.push_back(BoxOf(item));
    boxes.push_back(BoxOf(hidden));
    return boxes;
  }

  std::vector<ItemHandle> items;
  ItemHandle hidden = -1;
};

TEST_F(TreeChecks, BoxesTickedBeforeTheFirstPaintStayTicked) {
  ShowWindow(host, SW_HIDE);
  OpenEmpty(QVLS_CHECKBOXES | QVLS_HASLINES);
  EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE) & 0xFFFF, TVS_CHECKBOXES | TVS_HASLINES);
  const LRESULT images = StateImages();
  EXPECT_NE(images, 0);
  const ItemHandle empty = InsertChecked(false);
  const ItemHandle ticked = InsertChecked(true);
  const ItemHandle later = InsertChecked(false);
  view->SetItemChecked(later, true);
  for (const char* when : {"before", "after the first paint", "after another"}) {
    EXPECT_EQ(BoxOf(empty), 1u) << when;
    EXPECT_EQ(BoxOf(ticked), 2u) << when;
    EXPECT_EQ(BoxOf(later), 2u) << when;
    Paint();
  }
  EXPECT_EQ(StateImages(), images);
}

// The native style alone makes boxes, but records say nothing of them then.
TEST_F(TreeChecks, RecordsNeedTheFlagForBoxes) {
  OpenEmpty();
  EXPECT_EQ(StateImages(), 0);
  EXPECT_EQ(BoxOf(InsertChecked(true)), 0u);
  QVLTreeViewStyleExt ext;
  ext.SetStyle(TVS_CHECKBOXES);
  control = CreateView(0, &ext);
  EXPECT_NE(StateImages(), 0);
  const ItemHandle item = InsertChecked(true);
  EXPECT_EQ(BoxOf(item), 1u);
  view->SetItemChecked(item, true);
  Paint();
  EXPECT_EQ(BoxOf(item), 2u);
}

TEST_F(TreeChecks, RecordSetsTheBoxAndAnUpdateOnlyTicks) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle item = InsertChecked(true);
  struct Row {
    bool checked;
    int stateIndex;
    UINT boxOfNew;
    UINT boxOfUpdated;
  };
  for (const Row row :
       {Row{false, -1, 1, 2}, Row{false, 1, 1, 1}, Row{true, -1, 2, 2}, Row{true, 1, 2, 2},
        Row{false, 0, 1, 0}, Row{false, -1, 1, 0}, Row{true, 0, 2, 2}, Row{false, 18, 2, 2}}) {
    EXPECT_EQ(BoxOf(InsertChecked(row.checked, row.stateIndex)), row.boxOfNew);
    QVLTreeViewItem record;
    record.SetChecked(row.checked);
    record.SetStateIndex(row.stateIndex);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    EXPECT_EQ(BoxOf(item), row.boxOfUpdated) << row.checked << " " << row.stateIndex;
  }
}

TEST_F(TreeChecks, AnyBoxButTheEmptyOneIsCheckedAndTheTickedOneCounts) {
  OpenWithAllBoxes();
  EXPECT_EQ(view->GetCheckedCount(), 1);
  EXPECT_EQ(view->GetCheckedItem(0), items[2]);
  EXPECT_EQ(view->GetCheckedItem(1), -1);
  EXPECT_EQ(view->GetCheckedItem(-1), -1);
  for (const ItemHandle item : items) {
    EXPECT_EQ(view->IsItemChecked(item), item != items[1]);
    view->SetItemChecked(item, true);
    EXPECT_EQ(BoxOf(item), 2u);
    view->SetItemChecked(item, false);
    EXPECT_EQ(BoxOf(item), 1u);
  }
  EXPECT_EQ(Heard(), "") << "nobody is told";
}

TEST_F(TreeChecks, CheckAllAndUncheckAllChangeOneStateOfVisibleItems) {
  OpenWithAllBoxes();
  view->CheckAll();
  EXPECT_EQ(Boxes(), (std::vector<UINT>{0, 2, 2, 3, 1}));
  EXPECT_EQ(view->GetCheckedItem(0), items[1]);
  SetBox(hidden, 2);
  EXPECT_EQ(view->GetCheckedCount(), 2) << "a hidden item does not count";
  view->UncheckAll();
  EXPECT_EQ(Boxes(), (std::vector<UINT>{0, 1, 1, 3, 2}));
  view->ExpandItem(items[3], true);
  client.Take();
  EXPECT_EQ(view->GetCheckedItem(0), hidden);
  view->UncheckAll();
  EXPECT_EQ(Boxes(), (std::vector<UINT>{0, 1, 1, 3, 1}));
  EXPECT_EQ(Heard(), "") << "nobody is told";
}

TEST_F(TreeChecks, WithoutBoxesTheStateCounts) {
  OpenEmpty();
  const ItemHandle item = Insert(TEXT("a"));
  EXPECT_TRUE(view->IsItemChecked(item));
  view->CheckAll();
  view->UncheckAll();
  EXPECT_EQ(BoxOf(item), 0u);
  EXPECT_EQ(view->GetCheckedCount(), 0);
  view->SetItemChecked(item, true);
  EXPECT_EQ(view->GetCheckedCount(), 1);
}

// The images that the control made for the boxes are the view's to free; a host's are not.
TEST_F(TreeChecks, HostsStateImagesOutliveTheView) {
  OpenEmpty(QVLS_CHECKBOXES);
  EXPECT_GE(ImageList_GetImageCount(reinterpret_cast<HIMAGELIST>(StateImages())), 3);
  const HIMAGELIST own = ImageList_Create(16, 16, ILC_COLOR32, 4, 1);
  EXPECT_TRUE(view->SetStateImageList(own));
  view->Destroy();
  EXPECT_TRUE(ImageList_Destroy(own)) << "the view took it along";
}

}  // namespace
