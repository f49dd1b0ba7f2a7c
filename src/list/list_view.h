// The view over the native list control.
#pragma once

#include "common/control_view.h"
#include "list/row_walk.h"
#include "platform/list_control.h"

// A flat sequence of rows in report mode. A row's indent is the only trace of a hierarchy, and a
// handle is the row's index. The control is the only store of rows and selection. The view owns its
// two windows, and the state images that the control made for check boxes.
class QVLListView final : public ControlView<ListControl, RowWalk, ControlRedraw> {
 public:
  HWND Create(HWND parent, int controlId, int x, int y, int width, int height, std::uint32_t style,
              QVLTreeViewStyleExt* styleExt) override;
  void Destroy() override;
  int GetViewType() override;
  bool UseSystemImageList() override;
  bool SetBkColor(COLORREF color) override;
  bool Move(int x, int y, int width, int height) override;
  void DeleteAllItems() override;
  bool GetScrollPosition(int* x, int* y) override;
  void SetScrollPosition(int x, int y) override;
  ItemHandle InsertItem(QVLTreeViewItem* item, ItemHandle parent) override;
  bool UpdateItem(QVLTreeViewItem* item, ItemHandle handle) override;
  bool DeleteItem(ItemHandle handle) override;
  std::int64_t GetItems(ItemHandleList* items, bool visibleOnly) override;
  ItemHandle GetParentItem(ItemHandle handle) override;
  ItemHandle GetFirstChildItem(ItemHandle handle) override;
  ItemHandle GetNextSiblingItem(ItemHandle handle) override;
  void ExpandItem(ItemHandle handle, bool expand) override;
  bool IsItemExpanded(ItemHandle handle) override;
  void ExpandAll() override;
  void CollapseAll() override;
  void EnsureVisible(ItemHandle handle) override;
  ItemHandle HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) override;
  std::int64_t GetItemClientPtr(ItemHandle handle) override;
  int GetSelectedCount() override;
  void SetItemSelected(ItemHandle handle, bool selected) override;
  void SelectAll() override;
  void ClearSelection() override;
  void InvertSelection() override;
  ~QVLListView() override;

 private:
  template <class View>
  friend LRESULT HandleParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  friend LRESULT CALLBACK ListControlSubclassProc(HWND, UINT, WPARAM, LPARAM);

  // Creation and insertion.
  bool CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt);
  void ObserveRedraw();
  void MakeColumns();
  RECT ControlRect() const;
  int InsertRow(const QVLTreeViewItem& item, ItemHandle parent);
  int SetCell(const QVLTreeViewItem& item, int row);
  int IndentUnder(ItemHandle parent, const QVLTreeViewItem& item) const;
  void ApplyCheckAndSelection(const QVLTreeViewItem& item, int row);
  int ImageOfNewRow(const QVLTreeViewItem& item) const;
  int ImageOfRow(const QVLTreeViewItem& item) const;
  int ImageOfCell(const QVLTreeViewItem& item) const;

  // Selection.
  void ChangeRows(Inverted inverted);
  void SelectAlone(int row);

  // Notifications of the control.
  LRESULT HandleNotification(HWND window, WPARAM wParam, LPARAM lParam);
  void HandleOwnNotification(NMHDR& header);
  void HandleItemChanged(ItemHandle row);
  bool HandleBeginDrag(ItemHandle dragged);
  void HandleInfoTip(NMLVGETINFOTIPW& record);

  std::int32_t nextRow = 0;
  bool clientColumns = false;
};

LRESULT CALLBACK ListParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK ListControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
