// The view over the native tree control.
#pragma once

#include "core/qvl.h"
#include "view/check_box_images.h"
#include "view/life_watch.h"
#include "view/redraw_pause.h"

class QVLShellContextMenu;
struct FileIcon;

// The control is the only store of the items: the view keeps no copy of them, nor of the
// selection. Owns its two windows and the state images that the control made for check boxes.
class QVLTreeView final : public IQVLTreeView {
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
  ~QVLTreeView() override;

 private:
  friend struct ViewParent;
  friend LRESULT CALLBACK TreeControlSubclassProc(HWND, UINT, WPARAM, LPARAM);

  // A message as the control's procedure received it.
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
  void ReplaceStateImages(UINT from, UINT to);
  ItemHandle NeighbourOf(ItemHandle handle, WPARAM relation);

  // Selection. A report calls out: the view may be gone after it.
  void Report(ItemHandle item);
  void MarkAndReport(ItemHandle item, bool selected);
  void DeselectAll(bool withBrackets);
  void SelectRange(ItemHandle anchor, const HeldItem& target);
  void SelectAlone(const HeldItem& item);
  bool CollectSelected(ItemHandleList& items);

  // Gestures.
  LRESULT Forward(const Input& input);
  ItemHandle ItemUnder(LPARAM clientPoint);
  LRESULT HandleKeyDown(WPARAM wParam, LPARAM lParam);
  void ExtendByKey(WPARAM key);
  void DeselectByKey();
  LRESULT HandleLButtonDown(WPARAM wParam, LPARAM lParam);
  LRESULT ToggleByPress(const Input& press, ItemHandle hit);
  LRESULT ExtendByPress(const Input& press, ItemHandle hit);
  LRESULT SelectByPress(const Input& press, ItemHandle hit);

  // What the control and the menu report to the parent window.
  LRESULT HandleNotify(HWND window, WPARAM wParam, LPARAM lParam);
  void HandleControlReport(NMHDR& header);
  void HandleItemDeleted(const NMTREEVIEWW& record);
  bool HandleBeginDrag(ItemHandle dragged);
  void IncludeInSelection(ItemHandle dragged);
  void HandleInfoTip(NMTVGETINFOTIPW& record);

  IQVLTreeView* owner = nullptr;
  std::int32_t shellIconCount = 0;
  COLORREF bkColor = 0;
  HWND controlWindow = nullptr;
  HWND parentWindow = nullptr;
  std::int32_t controlId = 0;
  std::uint32_t styleFlags = 0;
  IQVLTreeViewClient* client = nullptr;
  bool usingSystemImages = false;
  bool multiSelect = false;
  ItemHandle selectionAnchor = 0;
  QVLShellContextMenu* activeContextMenu = nullptr;
  CheckBoxImages checkBoxImages;
  ControlRedraw redraw;
  ViewLife life;
};

// The procedure that a tree control had before TreeControlSubclassProc took its place. One for the
// process: all tree controls have the same class procedure.
extern WNDPROC savedControlProc;

LRESULT CALLBACK TreeParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK TreeControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
