// Messages to a native list control, in the platform's own words.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace list {

constexpr int kNoRow = -1;

// State images: 0 shows no box.
constexpr UINT kStateImageShift = 12;
constexpr UINT kEmptyBox = 1;
constexpr UINT kTickedBox = 2;

// The row that a handle names. A handle that no row can have names none, so that it never comes to
// mean all rows to the control.
inline int Row(std::int64_t handle) {
  const auto row = static_cast<int>(handle);
  return row == handle ? row : kNoRow;
}

inline int InsertItem(HWND control, LVITEMW& item) {
  return static_cast<int>(
      SendMessageW(control, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

inline bool SetItem(HWND control, LVITEMW& item) {
  return SendMessageW(control, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

inline bool GetItem(HWND control, LVITEMW& item) {
  return SendMessageW(control, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

inline bool DeleteItem(HWND control, int row) {
  return SendMessageW(control, LVM_DELETEITEM, static_cast<WPARAM>(row), 0) != 0;
}

inline void DeleteAllItems(HWND control) { SendMessageW(control, LVM_DELETEALLITEMS, 0, 0); }

inline int ItemCount(HWND control) {
  return static_cast<int>(SendMessageW(control, LVM_GETITEMCOUNT, 0, 0));
}

inline int SelectedCount(HWND control) {
  return static_cast<int>(SendMessageW(control, LVM_GETSELECTEDCOUNT, 0, 0));
}

inline UINT ItemState(HWND control, int row, UINT mask) {
  return static_cast<UINT>(SendMessageW(control, LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
}

// The control reports every change of a row to its parent, during the call.
inline void SetItemState(HWND control, int row, UINT state, UINT mask) {
  LVITEMW change{};
  change.state = state;
  change.stateMask = mask;
  SendMessageW(control, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&change));
}

inline bool IsSelected(HWND control, int row) {
  return (ItemState(control, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

inline void Select(HWND control, int row, bool selected) {
  SetItemState(control, row, selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

inline UINT StateImage(HWND control, int row) {
  return ItemState(control, row, LVIS_STATEIMAGEMASK) >> kStateImageShift;
}

inline void SetStateImage(HWND control, int row, UINT image) {
  SetItemState(control, row, image << kStateImageShift, LVIS_STATEIMAGEMASK);
}

// The tests that walks ask of each row.
inline auto SelectedIn(HWND control) {
  return [control](std::int64_t row) { return IsSelected(control, static_cast<int>(row)); };
}

inline auto TickedIn(HWND control) {
  return [control](std::int64_t row) {
    return StateImage(control, static_cast<int>(row)) == kTickedBox;
  };
}

// All rows from the top down, as many as there are when the walk begins.
class Rows {
 public:
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = int;

    Iterator() = default;
    explicit Iterator(int first) : row(first) {}

    int operator*() const { return row; }
    Iterator& operator++() {
      ++row;
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(const Iterator& other) const = default;

   private:
    int row = 0;
  };

  explicit Rows(HWND control) : count(std::max(ItemCount(control), 0)) {}
  Iterator begin() const { return Iterator(0); }
  Iterator end() const { return Iterator(count); }

 private:
  int count;
};

// `hit` holds the point in client coordinates and receives the platform's hit flags.
inline int HitTest(HWND control, LVHITTESTINFO& hit) {
  return static_cast<int>(SendMessageW(control, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

inline void Update(HWND control, int row) {
  SendMessageW(control, LVM_UPDATE, static_cast<WPARAM>(row), 0);
}

// Scrolls until the row is wholly in view.
inline void EnsureVisible(HWND control, int row) {
  SendMessageW(control, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), 0);
}

inline void Scroll(HWND control, int dx, int dy) {
  SendMessageW(control, LVM_SCROLL, static_cast<WPARAM>(dx), dy);
}

inline int TopRow(HWND control) {
  return static_cast<int>(SendMessageW(control, LVM_GETTOPINDEX, 0, 0));
}

// The row's bounds in client coordinates, empty if there is no such row.
inline RECT RowBounds(HWND control, int row) {
  RECT bounds{};
  bounds.left = LVIR_BOUNDS;
  SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&bounds));
  return bounds;
}

inline void SetExtendedStyle(HWND control, DWORD style) {
  SendMessageW(control, LVM_SETEXTENDEDLISTVIEWSTYLE, style, static_cast<LPARAM>(style));
}

inline void InsertColumn(HWND control, int index, LVCOLUMNW& column) {
  SendMessageW(control, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&column));
}

// The width in pixels; its low 16 bits count.
inline void SetColumnWidth(HWND control, int index, int width) {
  SendMessageW(control, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), width & 0xFFFF);
}

inline void SetImageList(HWND control, WPARAM kind, HIMAGELIST images) {
  SendMessageW(control, LVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(images));
}

inline HIMAGELIST ImageList(HWND control, WPARAM kind) {
  return reinterpret_cast<HIMAGELIST>(SendMessageW(control, LVM_GETIMAGELIST, kind, 0));
}

// The background of the control and of its text.
inline void SetBkColor(HWND control, COLORREF color) {
  SendMessageW(control, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
  SendMessageW(control, LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color));
}

inline void SetTextColor(HWND control, COLORREF color) {
  SendMessageW(control, LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color));
}

inline HWND ToolTip(HWND control) {
  return reinterpret_cast<HWND>(SendMessageW(control, LVM_GETTOOLTIPS, 0, 0));
}

}  // namespace list
