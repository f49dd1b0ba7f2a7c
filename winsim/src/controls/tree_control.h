// The tree control.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <commctrl.h>

#include "controls/label_edit.h"
#include "window/control.h"

namespace winsim {

struct TreeItem {
  HTREEITEM handle = nullptr;
  TreeItem* parent = nullptr;
  TreeItem* previous = nullptr;
  TreeItem* next = nullptr;
  TreeItem* firstChild = nullptr;
  TreeItem* lastChild = nullptr;
  int level = 0;
  int row = -1;  // the place among the visible items when they were last counted
  std::u16string text;
  int image = 0;
  int selectedImage = 0;
  LPARAM param = 0;
  UINT state = 0;
};

// A notification may change or delete items or destroy the window. Code after a notification finds
// its items again by their handles. A handle is never reused.
class TreeControl : public Control, public LabelEditOwner {
 public:
  explicit TreeControl(HWND tree);

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  void EndLabelEdit(bool cancel) override;
  void SettleLayout() override;

 private:
  // tree_control.cpp
  LRESULT HandleLook(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleWindow(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT SetImageList(WPARAM kind, HIMAGELIST list);
  void StyleChanged(const STYLESTRUCT& change);
  void MakeCheckBoxes();
  void Painted();
  DWORD Style() const;
  bool Gone() const;
  void LayoutChanged() { rowsStale = barsStale = true; }
  void NotifyItem(UINT code, HTREEITEM handle, UINT action = 0);

  // tree_items.cpp
  TreeItem* Find(HTREEITEM handle);
  TreeItem* FindOrRoot(HTREEITEM handle);
  LRESULT Insert(const TVINSERTSTRUCTW& insert);
  LRESULT SetItem(const TVITEMW& values);
  LRESULT GetItem(TVITEMW* values);
  LRESULT ItemState(HTREEITEM handle, UINT mask);
  LRESULT Delete(HTREEITEM handle);
  void DeleteBranch(HTREEITEM handle);
  void DeleteAll();
  LRESULT NextItem(WPARAM relation, HTREEITEM handle);
  const TreeItem* RelativeOf(TreeItem* item, WPARAM relation) const;
  TreeItem* VisibleAfter(TreeItem* item) const;
  TreeItem* VisibleBefore(TreeItem* item) const;

  // tree_selection.cpp
  bool SelectMessage(WPARAM relation, HTREEITEM handle);
  bool Select(HTREEITEM handle);
  bool ExpandMessage(WPARAM action, HTREEITEM handle);
  bool Expand(HTREEITEM handle, bool byUser);
  bool Collapse(HTREEITEM handle, bool byUser);
  void LeaveBranch(TreeItem* head);
  void ToggleExpansion(HTREEITEM handle);
  void ShowBranchOf(HTREEITEM handle);
  void ToggleBox(HTREEITEM handle);

  // tree_layout.cpp
  void CountRows();
  void SettleBars();
  void StoreBars(bool vertical, int page, bool horizontal, int width);
  int TextLeft(const TreeItem& item) const;
  int BoxLeft(const TreeItem& item) const;
  int BoxWidth(const TreeItem& item) const;
  int FirstRow();
  int PageRows();
  void ScrollTo(int firstRow);
  bool ScrollIntoView(HTREEITEM handle);
  void ScrollSideways(HTREEITEM handle);
  void ScrollBranchIntoView(HTREEITEM handle);
  LRESULT HitTest(TVHITTESTINFO* info);
  UINT HitPart(const TreeItem& item, int x) const;
  LRESULT ItemRect(bool textOnly, RECT* rect);
  LRESULT EnsureVisible(HTREEITEM handle);

  // tree_input.cpp
  LRESULT LeftButtonDown(POINT point);
  LRESULT RightButtonDown(POINT point);
  LRESULT KeyDown(WPARAM key);
  void MoveCaretByKey(WPARAM key);
  void CollapseOrLeave(const TreeItem& item);
  void ExpandOrEnter(const TreeItem& item);
  void SelectParentOf(const TreeItem& item);
  void ExpandWholeBranch(HTREEITEM handle);
  bool CanBePressed(UINT hitFlags) const;
  void Focused();

  // tree_edit.cpp
  LRESULT BeginLabelEdit(HTREEITEM handle);
  bool NotifyLabelEdit(UINT code, HTREEITEM handle, LPWSTR text, UINT mask);
  void NotifyLabelEditEnd(bool withText);
  void CloseLabelEdit();

  HWND window;
  HWND toolTip = nullptr;
  HWND edit = nullptr;
  HTREEITEM editedItem = nullptr;
  std::unordered_map<HTREEITEM, std::unique_ptr<TreeItem>> items;
  TreeItem root;
  HTREEITEM caret = nullptr;
  HTREEITEM firstVisible = nullptr;
  std::vector<TreeItem*> rows;  // the visible items, unless stale
  int widest = 0;
  int scrollX = 0;
  bool rowsStale = false;
  bool barsStale = false;
  bool redraw = true;
  HIMAGELIST images = nullptr;
  HIMAGELIST stateImages = nullptr;
  int rowHeight = 16;
  int indent = 19;
  COLORREF backColor = CLR_NONE;
  COLORREF textColor = CLR_NONE;
};

// Whether no ancestor of the item is collapsed.
bool IsShown(const TreeItem& item);
bool IsInBranch(const TreeItem* item, const TreeItem* head);

}  // namespace winsim
