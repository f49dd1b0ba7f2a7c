// Check boxes of a tree.
#include "support/tree_gestures.h"

namespace {

class TreeChecks : public TreeTest {
 protected:
  ItemHandle InsertChecked(bool checked, int stateIndex = -1) {
    QVLTreeViewItem item;
    item.SetChecked(checked);
    item.SetStateIndex(stateIndex);
    return view->InsertItem(&item, -1);
  }

  void Paint() {
    ShowWindow(host, SW_SHOWNOACTIVATE);
    InvalidateRect(control, nullptr, TRUE);
    UpdateWindow(control);
    PumpMessages();
  }

  LRESULT StateImages() const { return Ask(TVM_GETIMAGELIST, TVSIL_STATE); }
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

TEST_F(TreeChecks, OnlyVisibleItemsAreCheckedAndCount) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle shown = Insert(TEXT("shown"));
  const ItemHandle hidden = Insert(TEXT("hidden"), shown);
  view->CheckAll();
  EXPECT_TRUE(BoxOf(shown) == 2 && BoxOf(hidden) == 1);
  SetBox(hidden, 2);
  EXPECT_EQ(view->GetCheckedCount(), 1);
  EXPECT_EQ(view->GetCheckedItem(0), shown);
  view->UncheckAll();
  EXPECT_TRUE(BoxOf(shown) == 1 && BoxOf(hidden) == 2);
  EXPECT_EQ(view->GetCheckedCount(), 0);
  view->ExpandItem(shown, true);
  EXPECT_EQ(view->GetCheckedItem(0), hidden);
  view->UncheckAll();
  EXPECT_EQ(BoxOf(hidden), 1u);
}

}  // namespace
