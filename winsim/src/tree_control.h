// The tree control.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <commctrl.h>

#include "label_edit.h"
#include "window.h"

namespace winsim {

struct TreeItem {
  HTREEITEM handle = nullptr;
  TreeItem* parent = nullptr;
  TreeItem* previous = nullptr;
  TreeItem* next = nullptr;
  TreeItem* firstChild = nullptr;
  TreeItem* lastChild = nullptr;
  int level = 0;
  int row = -1;  // place in the visible walk when that was last written down
  std::u16string text;
  int image = 0;
  int selectedImage = 0;
  LPARAM param = 0;
  UINT state = 0;
};

// Keeps items and answers messages. Every notification can change or end everything, so what
// follows one looks its items up again by their handles.
class TreeControl : public Control, public LabelEditOwner {
 public:
  explicit TreeControl(HWND window);

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  void EndLabelEdit(bool cancel) override;
  void SettleLayout() override;

 private:
  // tree_control.cpp
  LRESULT HandleWindow(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT SetImageList(WPARAM kind, HIMAGELIST list);
  void StyleChanged(const STYLESTRUCT& change);
  void MakeCheckBoxes();
  void Painted();
  DWORD Style() const;
  bool Gone() const;
  void EndWindow();

  // tree_items.cpp
  TreeItem* Find(HTREEITEM handle);
  TreeItem* FindOrRoot(HTREEITEM handle);
  LRESULT Insert(const TVINSERTSTRUCTW& insert);
  LRESULT SetItem(const TVITEMW& item);
  LRESULT GetItem(TVITEMW* item);
  LRESULT Delete(HTREEITEM handle);
  void DeleteBranch(HTREEITEM handle);
  void DeleteAll();
  void Link(TreeItem* item, TreeItem* parent);
  void Unlink(TreeItem* item);
  LRESULT NextItem(WPARAM relation, HTREEITEM handle);
  void Store(TreeItem* item, const TVITEMW& values);
  bool IsInBranch(const TreeItem* item, const TreeItem* head) const;

  // tree_selection.cpp
  bool SelectMessage(WPARAM relation, HTREEITEM handle);
  bool Select(HTREEITEM handle, UINT action);
  bool ExpandMessage(WPARAM action, HTREEITEM handle);
  bool Expand(HTREEITEM handle, bool byUser);
  bool Collapse(HTREEITEM handle, bool byUser);
  void ToggleExpansion(HTREEITEM handle);
  void ShowBranchOf(HTREEITEM handle);
  bool NotifyItems(UINT code, UINT action, HTREEITEM before, UINT beforeMask, HTREEITEM now,
                   UINT nowMask);

  // tree_layout.cpp
  void WriteRows();
  void SettleBars();
  TreeItem* VisibleAfter(TreeItem* item);
  TreeItem* VisibleBefore(TreeItem* item);
  bool IsShown(const TreeItem* item) const;
  int TextLeft(const TreeItem& item) const;
  int BoxLeft(const TreeItem& item) const;
  int BoxWidth(const TreeItem& item) const;
  int FirstRow();
  int PageRows() const;
  int LastFirstRow();
  void ScrollTo(int firstRow);
  bool ScrollIntoView(HTREEITEM handle, bool sideways);
  void ScrollBranchIntoView(HTREEITEM handle);
  LRESULT HitTest(TVHITTESTINFO* info);
  LRESULT ItemRect(bool textOnly, RECT* rect);
  LRESULT EnsureVisible(HTREEITEM handle);

  // tree_input.cpp
  LRESULT LeftButtonDown(LPARAM lParam);
  LRESULT RightButtonDown(LPARAM lParam);
  LRESULT KeyDown(WPARAM key);
  void MoveCaretByKey(WPARAM key);
  void ExpandByKey(WPARAM key);
  void ExpandWholeBranch(HTREEITEM handle);
  void ToggleBox(HTREEITEM handle);
  void BeginDrag(UINT code, HTREEITEM handle, POINT point);
  bool CanBePressed(UINT hitFlags) const;
  void Focused();

  // tree_edit.cpp
  LRESULT BeginLabelEdit(HTREEITEM handle);
  bool AskLabelEdit(UINT code, HTREEITEM handle, LPWSTR text, UINT mask);
  void TellLabelEditEnd(bool withText);
  void CloseLabelEdit();

  HWND window_;
  HWND toolTip_ = nullptr;
  HWND edit_ = nullptr;
  HTREEITEM edited_ = nullptr;
  std::unordered_map<HTREEITEM, std::unique_ptr<TreeItem>> items_;
  TreeItem root_;
  HTREEITEM caret_ = nullptr;
  HTREEITEM firstVisible_ = nullptr;
  std::vector<TreeItem*> rows_;
  int widest_ = 0;
  int scrollX_ = 0;
  bool rowsStale_ = false;
  bool barsStale_ = false;
  bool redraw_ = true;
  HIMAGELIST images_ = nullptr;
  HIMAGELIST stateImages_ = nullptr;
  int rowHeight_ = 16;
  int indent_ = 19;
  COLORREF backColor_ = CLR_NONE;
  COLORREF textColor_ = CLR_NONE;
};

}  // namespace winsim
