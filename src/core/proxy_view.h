// The view that a host gets: it creates a tree or a list and forwards every operation to it.
#pragma once

#include "core/life_watch.h"
#include "core/qvl.h"

// Passes arguments and results on unchanged. A callback may end the proxy, so a forward is the last
// thing that an operation does.
class QVLProxyView final : public IQVLTreeView {
 public:
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
  void SetClient(IQVLTreeViewClient* client) override;
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
  ~QVLProxyView() override;

 private:
  void EndImplementation();

  IQVLTreeView* implementation = nullptr;
  IQVLTreeViewClient* client = nullptr;
  ViewLife life;                // of the proxy
  ViewLife implementationLife;  // of the implementation
};
