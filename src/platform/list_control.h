// Messages to a native list control, with typed arguments and results.
#pragma once

#include "platform/state_images.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

struct ListControl {
  static constexpr int kNoRow = -1;

  // Kinds of image lists.
  static constexpr WPARAM kItemImages = LVSIL_SMALL;
  static constexpr WPARAM kStateImages = LVSIL_STATE;

  class Rows;

  // The row that an ItemHandle names. A number that no row can have names none, because the control
  // would take some of those for all rows.
  static int Named(std::int64_t handle) {
    const auto row = static_cast<int>(handle);
    return row == handle ? row : kNoRow;
  }

  static int InsertItem(HWND control, LVITEMW& item) {
    return static_cast<int>(
        SendMessageW(control, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
  }

  static bool SetItem(HWND control, LVITEMW& item) {
    return SendMessageW(control, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
  }

  static bool GetItem(HWND control, LVITEMW& item) {
    return SendMessageW(control, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
  }

  static bool DeleteItem(HWND control, int row) {
    return SendMessageW(control, LVM_DELETEITEM, static_cast<WPARAM>(row), 0) != 0;
  }

  static void DeleteAllItems(HWND control) { SendMessageW(control, LVM_DELETEALLITEMS, 0, 0); }

  static int ItemCount(HWND control) {
    return static_cast<int>(SendMessageW(control, LVM_GETITEMCOUNT, 0, 0));
  }

  static int SelectedCount(HWND control) {
    return static_cast<int>(SendMessageW(control, LVM_GETSELECTEDCOUNT, 0, 0));
  }

  static UINT ItemState(HWND control, int row, UINT mask) {
    return static_cast<UINT>(
        SendMessageW(control, LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
  }

  // The control sends a notification for every change, during the call.
  static void SetItemState(HWND control, int row, UINT state, UINT mask) {
    LVITEMW change{};
    change.state = state;
    change.stateMask = mask;
    SendMessageW(control, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&change));
  }

  static bool IsSelected(HWND control, int row) {
    return (ItemState(control, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
  }

  static void Select(HWND control, int row, bool selected) {
    SetItemState(control, row, selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
  }

  static UINT StateImage(HWND control, int row) {
    return ItemState(control, row, LVIS_STATEIMAGEMASK) >> kStateImageShift;
  }

  static void SetStateImage(HWND control, int row, UINT image) {
    SetItemState(control, row, image << kStateImageShift, LVIS_STATEIMAGEMASK);
  }

  // Tests of a row, for walks.
  static auto SelectedIn(HWND control) {
    return [control](std::int64_t row) { return IsSelected(control, static_cast<int>(row)); };
  }
  static auto CheckedIn(HWND control) {
    return [control](std::int64_t row) {
      return StateImage(control, static_cast<int>(row)) == kCheckedBox;
    };
  }

  // `hit` has the point in client coordinates and receives the platform's hit flags.
  static int HitTest(HWND control, LVHITTESTINFO& hit) {
    return static_cast<int>(SendMessageW(control, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  }

  static void Update(HWND control, int row) {
    SendMessageW(control, LVM_UPDATE, static_cast<WPARAM>(row), 0);
  }

  // Scrolls until the whole row is in view.
  static void EnsureVisible(HWND control, int row) {
    SendMessageW(control, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), 0);
  }

  static void Scroll(HWND control, int dx, int dy) {
    SendMessageW(control, LVM_SCROLL, static_cast<WPARAM>(dx), dy);
  }

  static int TopRow(HWND control) {
    return static_cast<int>(SendMessageW(control, LVM_GETTOPINDEX, 0, 0));
  }

  // The row's bounds in client coordinates, empty if there is no such row.
  static RECT RowBounds(HWND control, int row) {
    RECT bounds{};
    bounds.left = LVIR_BOUNDS;
    SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&bounds));
    return bounds;
  }

  static void SetExtendedStyle(HWND control, DWORD style) {
    SendMessageW(control, LVM_SETEXTENDEDLISTVIEWSTYLE, style, static_cast<LPARAM>(style));
  }

  static void InsertColumn(HWND control, int index, LVCOLUMNW& column) {
    SendMessageW(control, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&column));
  }

  // The width in pixels; only its low 16 bits are used.
  static void SetColumnWidth(HWND control, int index, int width) {
    SendMessageW(control, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), width & 0xFFFF);
  }

  // Returns the list that was set before.
  static HIMAGELIST SetImageList(HWND control, WPARAM kind, HIMAGELIST images) {
    return reinterpret_cast<HIMAGELIST>(
        SendMessageW(control, LVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(images)));
  }

  static HIMAGELIST ImageList(HWND control, WPARAM kind) {
    return reinterpret_cast<HIMAGELIST>(SendMessageW(control, LVM_GETIMAGELIST, kind, 0));
  }

  // Sets the background of the control and of its text.
  static void SetBkColor(HWND control, COLORREF color) {
    SendMessageW(control, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
    SendMessageW(control, LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color));
  }

  static void SetTextColor(HWND control, COLORREF color) {
    SendMessageW(control, LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color));
  }

  static HWND ToolTip(HWND control) {
    return reinterpret_cast<HWND>(SendMessageW(control, LVM_GETTOOLTIPS, 0, 0));
  }

  // The items that queries and whole-view operations cover.
  static Rows Items(HWND control);
};

// All rows from top to bottom, as many as there are when the walk begins.
class ListControl::Rows {
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

inline ListControl::Rows ListControl::Items(HWND control) { return Rows(control); }
