// The list control in report mode.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>

#include "controls/header.h"
#include "controls/label_edit.h"
#include "window/control.h"

namespace winsim {

struct ListRow {
  std::vector<std::u16string> texts;  // by column, at least the first
  int image = 0;
  int indent = 0;
  LPARAM param = 0;
  UINT state = 0;
};

// A notification may change or delete rows or destroy the window. Code after a notification checks
// the row again. The rows are deleted before the window is gone.
class ListControl : public Control, public LabelEditOwner, public HeaderOwner {
 public:
  explicit ListControl(HWND list);

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  void EndLabelEdit(bool cancel) override;
  void SettleLayout() override;
  int ColumnCount() const override { return static_cast<int>(columns.size()); }

 private:
  // list_control.cpp
  LRESULT HandleView(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleLook(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleWindow(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT SetExtendedStyle(DWORD mask, DWORD style);
  LRESULT SetImageList(WPARAM kind, HIMAGELIST list);
  HIMAGELIST ImageList(WPARAM kind) const;
  void DestroyOwnBoxes();
  DWORD Style() const;
  bool Gone() const;
  bool IsRow(int row) const { return row >= 0 && row < Count(); }
  int Count() const { return static_cast<int>(rows.size()); }
  ListRow& Row(int row) { return *rows[static_cast<std::size_t>(row)]; }
  const ListRow& Row(int row) const { return *rows[static_cast<std::size_t>(row)]; }
  void NotifyRow(UINT code, int row);

  // list_rows.cpp
  int Insert(const LVITEMW& values);
  bool SetItem(const LVITEMW& values);
  bool SetCell(const LVITEMW& values);
  bool GetItem(LVITEMW* values);
  LRESULT GetText(int row, const LVITEMW& request);
  bool Delete(int row);
  bool DeleteAll();

  // list_state.cpp
  bool ChangeState(int row, UINT state, UINT mask);
  LRESULT SetState(int row, const LVITEMW& values);
  void StoreState(int row, UINT state);
  bool TakeFocus(int row);
  void DeselectRows(const std::function<bool(int)>& concerned);
  void DeselectOthers(int row);
  void SelectOnly(int row);
  std::pair<int, int> RangeTo(int row);
  void DeselectOutside(int row);
  void SelectRange(int row);
  void FocusOn(int row);
  void ToggleBox(int row);

  // list_layout.cpp
  int RowHeight() const;
  int HeaderSpace() const;
  int BoxLeft(const ListRow& row) const;
  int TotalWidth() const;
  int PageRows() const;
  void ScrollTo(int row);
  bool ScrollBy(int x, int y);
  bool EnsureVisible(int row);
  int HitTest(LVHITTESTINFO* info);
  UINT HitPart(const ListRow& row, int x) const;
  bool ItemRect(int row, RECT* rect);
  int InsertColumn(int index, const LVCOLUMNW& column);
  bool SetColumnWidth(int column, int width);
  int ColumnWidth(int column) const;

  // list_input.cpp
  LRESULT LeftButtonDown(WPARAM keys, POINT point);
  LRESULT LeftButtonUp(POINT point);
  LRESULT RightButtonDown(POINT point);
  LRESULT MouseMoved(POINT point);
  void PressRow(int row, WPARAM keys);
  LRESULT KeyDown(WPARAM key);
  int RowForKey(WPARAM key) const;
  void MoveByKey(int row);
  void PressSpace();

  // list_edit.cpp
  LRESULT BeginLabelEdit(int row);
  void CloseLabelEdit();

  HWND window;
  HWND toolTip = nullptr;
  HWND header = nullptr;
  HWND edit = nullptr;
  int editedRow = -1;
  std::u16string editedText;
  std::vector<std::unique_ptr<ListRow>> rows;
  std::vector<int> columns;  // their widths
  DWORD extendedStyle = 0;
  int selectedCount = 0;
  int focus = -1;
  int anchor = -1;
  int top = 0;
  int scrollX = 0;
  bool barsStale = true;
  bool pressed = false;  // the left button is down and no drag has begun
  int pressedRow = -1;   // was selected before the press; -1: none
  POINT pressPoint = {};
  HIMAGELIST smallImages = nullptr;
  HIMAGELIST stateImages = nullptr;
  HIMAGELIST ownBoxes = nullptr;
  COLORREF backColor = CLR_NONE;
  COLORREF textBackColor = CLR_NONE;
  COLORREF textColor = 0;
};

}  // namespace winsim
