// The list control in report mode.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>

#include "label_edit.h"
#include "window.h"

namespace winsim {

struct ListRow {
  std::vector<std::u16string> texts;  // of the first column and as many more as were set
  int image = 0;
  int indent = 0;
  LPARAM param = 0;
  UINT state = 0;
};

// Keeps rows and answers messages. Every notification can change or end everything, so what follows
// one looks again whether its row and the window are still there.
class ListControl : public Control, public LabelEditOwner {
 public:
  explicit ListControl(HWND window);
  ~ListControl() override;
  ListControl(const ListControl&) = delete;
  ListControl& operator=(const ListControl&) = delete;

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
  void EndLabelEdit(bool cancel) override;
  void SettleLayout() override;
  int ColumnCount() const { return static_cast<int>(columns_.size()); }

 private:
  // list_control.cpp
  LRESULT HandleLook(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT HandleWindow(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT SetExtendedStyle(DWORD mask, DWORD style);
  LRESULT SetImageList(WPARAM kind, HIMAGELIST list);
  DWORD Style() const;
  bool Gone() const;
  bool IsRow(int row) const;
  int Count() const { return static_cast<int>(rows_.size()); }
  ListRow& Row(int row) { return *rows_[static_cast<std::size_t>(row)]; }
  const ListRow& Row(int row) const { return *rows_[static_cast<std::size_t>(row)]; }
  LRESULT NotifySimple(UINT code);
  LRESULT NotifyRow(UINT code, int row, UINT newState, UINT oldState, UINT changed);

  // list_rows.cpp
  void Remove(int row);
  int Insert(const LVITEMW* values);
  bool SetItem(const LVITEMW& values);
  bool SetCell(const LVITEMW& values);
  bool GetItem(LVITEMW* values);
  bool Delete(int row);
  bool DeleteAll();
  int InsertColumn(int index, const LVCOLUMNW* column);
  UINT Differences(const ListRow& row, const LVITEMW& values) const;

  // list_state.cpp
  bool ChangeState(int row, UINT state, UINT mask);
  LRESULT SetState(int row, const LVITEMW& values);
  void KeepState(int row, UINT state);
  void DeselectRows(const std::function<bool(int)>& concerned);
  void DeselectOthers(int row);
  void SelectOnly(int row);
  std::pair<int, int> StretchTo(int row);
  void DeselectOutside(int row);
  void SelectRange(int row);
  void FocusOn(int row);
  void ToggleBox(int row);

  // list_layout.cpp
  int RowHeight() const;
  int HeaderHeight() const;
  int IconWidth() const;
  int BoxWidth() const;
  int BoxLeft(const ListRow& row) const;
  int TotalWidth() const;
  int PageRows() const;
  int LastFirstRow() const;
  void ScrollTo(int row);
  void ScrollBy(int x, int y);
  bool EnsureVisible(int row);
  int HitTest(LVHITTESTINFO* info);
  bool ItemRect(int row, RECT* rect);

  // list_input.cpp
  LRESULT LeftButtonDown(WPARAM keys, LPARAM lParam);
  LRESULT LeftButtonUp(LPARAM lParam);
  LRESULT RightButtonDown(LPARAM lParam);
  void MouseMoved(LPARAM lParam);
  void PressRow(int row, WPARAM keys);
  LRESULT KeyDown(WPARAM key);
  void MoveByKey(int row);
  void PressSpace();
  void NotifyClick(UINT code, LPARAM lParam);
  void NotifyDrag(UINT code, int row, POINT point);

  // list_edit.cpp
  LRESULT BeginLabelEdit(int row);
  void CloseLabelEdit();

  HWND window_;
  HWND toolTip_ = nullptr;
  HWND header_ = nullptr;
  HWND edit_ = nullptr;
  int edited_ = -1;
  std::u16string editedText_;
  std::vector<ListRow*> rows_;  // owned; bare pointers, so that a long list moves quickly
  std::vector<int> columns_;
  DWORD extendedStyle_ = 0;
  int selectedCount_ = 0;
  int focus_ = -1;
  int mark_ = -1;
  int top_ = 0;
  int scrollX_ = 0;
  bool barsStale_ = true;
  bool pressed_ = false;  // the left button is down and no drag has begun
  int pressedRow_ = -1;   // selected already when it was pressed, -1 for none
  POINT pressPoint_ = {};
  HIMAGELIST smallImages_ = nullptr;
  HIMAGELIST stateImages_ = nullptr;
  HIMAGELIST ownBoxes_ = nullptr;
  COLORREF backColor_ = CLR_NONE;
  COLORREF textBackColor_ = CLR_NONE;
  COLORREF textColor_ = 0;
};

}  // namespace winsim
