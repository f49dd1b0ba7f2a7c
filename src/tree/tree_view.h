// The view over the native tree control.
#pragma once

#include "common/control_view.h"
#include "platform/tree_control.h"
#include "tree/tree_redraw.h"
#include "tree/visible_walk.h"

struct FileIcon;

// The control is the only store of the items and of the selection; the view keeps no copy. The view
// owns its two windows, and the state images that the control made for check boxes.
class QVLTreeView final : public ControlView<TreeControl, VisibleWalk, TreeRedraw> {
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
  ~QVLTreeView() override;

 private:
  template <class View>
  friend LRESULT HandleParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  friend LRESULT CALLBACK TreeControlSubclassProc(HWND, UINT, WPARAM, LPARAM);

  // A message to the control.
  struct Input {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  };

  // Creation and insertion.
  bool CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt);
  void SubclassControl();
  void MakeCheckBoxImages();
  void ApplyCheckAndSelection(const QVLTreeViewItem& item, HeldItem& handle);

  // Shell icons.
  int ImageOfNewItem(const QVLTreeViewItem& item);
  int ImageOfItem(const QVLTreeViewItem& item);
  int SharedImage(const FileIcon& icon);
  void EnsureSharedIconList(HIMAGELIST systemList);
  void SyncSharedIconList(HIMAGELIST systemList);
  void SetSharedIconListBkColor(COLORREF color);

  // Item operations.
  void ExpandVisibleItems(WPARAM action);
  ItemHandle NeighbourOf(ItemHandle handle, WPARAM relation);

  // Selection. A report calls the client, so the view may have ended afterwards.
  void MarkAndReport(ItemHandle item, bool selected);
  void ChangeInBracket(Inverted inverted);
  void ChangeItems(Inverted inverted);
  void DeselectAll();
  void SelectRange(ItemHandle anchor, const HeldItem& target);
  void SelectAlone(const HeldItem& item);
  void InvalidateSelection();
  void ShowWholeSelection();

  // Gestures.
  LRESULT HandleControlMessage(const Input& input);
  LRESULT Forward(const Input& input);
  ItemHandle ItemUnder(LPARAM clientPoint);
  LRESULT HandleKeyDown(const Input& input);
  void ExtendByKey(WPARAM key);
  void DeselectByKey();
  LRESULT HandleLButtonDown(const Input& press);
  LRESULT HandleRButtonDown(const Input& press);
  LRESULT ToggleByPress(const Input& press, ItemHandle hit);
  LRESULT ExtendByPress(const Input& press, ItemHandle hit);
  LRESULT SelectByPress(const Input& press, ItemHandle hit);

  // Notifications of the control.
  LRESULT HandleNotification(HWND window, WPARAM wParam, LPARAM lParam);
  void HandleOwnNotification(NMHDR& header);
  void HandleItemDeleted(const NMTREEVIEWW& record);
  void KeepSelectionPainted(UINT code);
  bool HandleBeginDrag(ItemHandle dragged);
  void IncludeInSelection(ItemHandle dragged);
  void HandleInfoTip(NMTVGETINFOTIPW& record);

  std::int32_t shellIconCount = 0;
  COLORREF bkColor = 0;
  ItemHandle selectionAnchor = 0;
};

// The procedure that a tree control had before TreeControlSubclassProc replaced it. One value for
// the process, because all tree controls have the same class procedure.
extern WNDPROC savedControlProc;

LRESULT CALLBACK TreeParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK TreeControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
