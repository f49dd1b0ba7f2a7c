// The view over the native list control.
#pragma once

#include "core/qvl.h"
#include "view/check_box_images.h"
#include "view/life_watch.h"
#include "view/redraw_pause.h"

class QVLShellContextMenu;

// A flat sequence of rows in report mode; a row's indent is all there is of a hierarchy, and a
// handle is the row's index. The control is the only store of rows and selection. Owns its two
// windows and the state images that the control made for check boxes.
class QVLListView final : public IQVLTreeView {
 public:
  void SetOwner(IQVLTreeView* newOwner) { owner = newOwner; }

  HWND Create(HWND parent, int controlId, int x, int y, int width, int height, std::uint32_t style,
              QVLTreeViewStyleExt* styleExt) override;
  void Destroy() override;
  int GetViewType() override;
  bool SetImageList(HIMAGELIST images) override;
  bool UseSystemImageList() override;
  bool SetStateImageList(HIMAGELIST images) override;
  bool SetBkColor(COLORREF color) override;
  bool SetTextColor(COLORREF color) override;
  void SetMultiSelect(bool enabled) override;
  bool GetMultiSelect() override;
  void SetClient(IQVLTreeViewClient* newClient) override;
  HWND GetControlWindow() override;
  bool Move(int x, int y, int width, int height) override;
  void DeleteAllItems() override;
  void Hide() override;
  void Show() override;
  void Redraw() override;
  bool GetScrollPosition(int* x, int* y) override;
  void SetScrollPosition(int x, int y) override;
  void SetToolTipWidth(int width) override;
  void SetToolTipDelay(int delay) override;
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
  ItemHandle GetSelectedItem(int index) override;
  void SetItemSelected(ItemHandle handle, bool selected) override;
  bool IsItemSelected(ItemHandle handle) override;
  void SelectAll() override;
  void ClearSelection() override;
  void InvertSelection() override;
  int GetCheckedCount() override;
  ItemHandle GetCheckedItem(int index) override;
  void SetItemChecked(ItemHandle handle, bool checked) override;
  bool IsItemChecked(ItemHandle handle) override;
  void CheckAll() override;
  void UncheckAll() override;
  bool ShowContextMenu(int x, int y) override;
  ~QVLListView() override;

 private:
  friend struct ViewParent;
  friend LRESULT CALLBACK ListControlSubclassProc(HWND, UINT, WPARAM, LPARAM);

  // Creation and insertion.
  bool CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt);
  void SubclassControl();
  void MakeColumns();
  RECT ControlRect() const;
  int InsertRow(const QVLTreeViewItem& item, ItemHandle parent);
  int SetCell(const QVLTreeViewItem& item, int row);
  int IndentUnder(ItemHandle parent, const QVLTreeViewItem& item) const;
  void ApplyCheckAndSelection(const QVLTreeViewItem& item, int row);
  int ImageOfNewRow(const QVLTreeViewItem& item) const;
  int ImageOfRow(const QVLTreeViewItem& item) const;

  // Row operations.
  void ReplaceStateImages(UINT from, UINT to);

  // Selection.
  void SelectAlone(int row);
  bool CollectSelected(ItemHandleList& items);

  // What the control and the menu report to the parent window.
  LRESULT HandleNotify(HWND window, WPARAM wParam, LPARAM lParam);
  void HandleReport(NMHDR& header);
  void HandleItemChanged(ItemHandle row);
  bool HandleBeginDrag(ItemHandle dragged);
  void HandleInfoTip(NMLVGETINFOTIPW& record);

  IQVLTreeView* owner = nullptr;
  HWND controlWindow = nullptr;
  HWND parentWindow = nullptr;
  std::int32_t controlId = 0;
  std::uint32_t styleFlags = 0;
  IQVLTreeViewClient* client = nullptr;
  std::int32_t nextRow = 0;
  bool usingSystemImages = false;
  bool multiSelect = false;
  bool clientColumns = false;
  QVLShellContextMenu* activeContextMenu = nullptr;
  CheckBoxImages checkBoxImages;
  ControlRedraw redraw;
  ViewLife life;
};

LRESULT CALLBACK ListParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK ListControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
