// Messages to a native tree control, with typed arguments and results.
#pragma once

#include "platform/state_images.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <cstring>
#include <iterator>

struct TreeControl {
  // A native item handle as a number; 0 is none.
  using Item = std::int64_t;

  // Kinds of image lists.
  static constexpr WPARAM kItemImages = TVSIL_NORMAL;
  static constexpr WPARAM kStateImages = TVSIL_STATE;

  class VisibleItems;
  class BranchItems;

  // The item that an ItemHandle names; -1 is none.
  static Item Named(Item handle) { return handle; }
  static HTREEITEM Handle(Item item) { return reinterpret_cast<HTREEITEM>(item); }

  static Item InsertItem(HWND control, TVINSERTSTRUCTW& insert) {
    return SendMessageW(control, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
  }

  static bool SetItem(HWND control, TVITEMW& item) {
    return static_cast<std::int32_t>(
               SendMessageW(control, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item))) != 0;
  }

  static bool GetItem(HWND control, TVITEMW& item) {
    return SendMessageW(control, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
  }

  static bool DeleteItem(HWND control, Item item) {
    return static_cast<std::int32_t>(SendMessageW(control, TVM_DELETEITEM, 0, item)) != 0;
  }

  static void DeleteAllItems(HWND control) {
    SendMessageW(control, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  }

  static Item NextItem(HWND control, WPARAM relation, Item item) {
    return SendMessageW(control, TVM_GETNEXTITEM, relation, item);
  }

  static Item FirstItem(HWND control) { return NextItem(control, TVGN_ROOT, 0); }
  static Item Caret(HWND control) { return NextItem(control, TVGN_CARET, 0); }
  static Item NextVisible(HWND control, Item item) {
    return NextItem(control, TVGN_NEXTVISIBLE, item);
  }

  // The first item that is scrolled into view.
  static Item TopItem(HWND control) { return NextItem(control, TVGN_FIRSTVISIBLE, 0); }
  static void ScrollToTop(HWND control, Item item) {
    SendMessageW(control, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, item);
  }

  // Clears the selected bit of the old caret and sets that of the new one; 0 leaves no caret.
  static void MoveCaret(HWND control, Item item) {
    SendMessageW(control, TVM_SELECTITEM, TVGN_CARET, item);
  }

  static void ClearDropHighlight(HWND control) {
    SendMessageW(control, TVM_SELECTITEM, TVGN_DROPHILITE, 0);
  }

  static UINT ItemState(HWND control, Item item, UINT mask) {
    return static_cast<UINT>(
               SendMessageW(control, TVM_GETITEMSTATE, static_cast<WPARAM>(item), mask)) &
           mask;
  }

  static void SetItemState(HWND control, Item item, UINT state, UINT mask) {
    TVITEMW change{};
    change.mask = TVIF_STATE;
    change.hItem = Handle(item);
    change.state = state;
    change.stateMask = mask;
    SetItem(control, change);
  }

  static bool IsSelected(HWND control, Item item) {
    return (ItemState(control, item, TVIS_SELECTED) & TVIS_SELECTED) != 0;
  }

  // Changes only the selected bit: the caret stays, and there is no notification.
  static void MarkSelected(HWND control, Item item, bool selected) {
    SetItemState(control, item, selected ? TVIS_SELECTED : 0, TVIS_SELECTED);
  }

  static UINT StateImage(HWND control, Item item) {
    return ItemState(control, item, TVIS_STATEIMAGEMASK) >> kStateImageShift;
  }

  static void SetStateImage(HWND control, Item item, UINT image) {
    SetItemState(control, item, image << kStateImageShift, TVIS_STATEIMAGEMASK);
  }

  // Tests of an item, for walks.
  static auto SelectedIn(HWND control) {
    return [control](Item item) { return IsSelected(control, item); };
  }
  static auto CheckedIn(HWND control) {
    return [control](Item item) { return StateImage(control, item) == kCheckedBox; };
  }

  static void Expand(HWND control, Item item, WPARAM action) {
    SendMessageW(control, TVM_EXPAND, action, item);
  }

  // The edit control of the label that is being edited, or null.
  static HWND EditControl(HWND control) {
    return reinterpret_cast<HWND>(SendMessageW(control, TVM_GETEDITCONTROL, 0, 0));
  }

  // Gets the item's row in client coordinates. False if the item is hidden.
  static bool GetRow(HWND control, Item item, RECT& row) {
    std::memcpy(&row, &item, sizeof item);  // the message takes the item in the rectangle's place
    return SendMessageW(control, TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row)) != 0;
  }

  static void EnsureVisible(HWND control, Item item) {
    SendMessageW(control, TVM_ENSUREVISIBLE, 0, item);
  }

  // `hit` has the point in client coordinates and receives the platform's hit flags.
  static Item HitTest(HWND control, TVHITTESTINFO& hit) {
    return SendMessageW(control, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  }

  // Returns the list that was set before.
  static HIMAGELIST SetImageList(HWND control, WPARAM kind, HIMAGELIST images) {
    return reinterpret_cast<HIMAGELIST>(
        SendMessageW(control, TVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(images)));
  }

  static HIMAGELIST ImageList(HWND control, WPARAM kind) {
    return reinterpret_cast<HIMAGELIST>(SendMessageW(control, TVM_GETIMAGELIST, kind, 0));
  }

  static void SetBkColor(HWND control, COLORREF color) {
    SendMessageW(control, TVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
  }

  static void SetTextColor(HWND control, COLORREF color) {
    SendMessageW(control, TVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color));
  }

  static HWND ToolTip(HWND control) {
    return reinterpret_cast<HWND>(SendMessageW(control, TVM_GETTOOLTIPS, 0, 0));
  }

  // The items that queries and whole-view operations cover.
  static VisibleItems Items(HWND control);
};

// The visible items from top to bottom. The next item is asked for when the loop goes on, so what
// the loop body expands or collapses counts.
class TreeControl::VisibleItems {
 public:
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = Item;

    Iterator() = default;
    Iterator(HWND walked, Item first) : control(walked), item(first) {}

    Item operator*() const { return item; }
    Iterator& operator++() {
      item = NextVisible(control, item);
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return item == 0; }

   private:
    HWND control = nullptr;
    Item item = 0;
  };

  explicit VisibleItems(HWND walked) : control(walked) {}
  Iterator begin() const { return {control, FirstItem(control)}; }
  std::default_sentinel_t end() const { return {}; }

 private:
  HWND control;
};

inline TreeControl::VisibleItems TreeControl::Items(HWND control) { return VisibleItems(control); }

// An item and all its descendants, collapsed or not, parents before children.
class TreeControl::BranchItems {
 public:
  BranchItems(HWND walked, Item branch) : control(walked), root(branch) {}

  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = Item;

    Iterator() = default;
    Iterator(HWND walked, Item branch) : control(walked), root(branch), item(branch) {}

    Item operator*() const { return item; }
    Iterator& operator++() {
      const Item child = NextItem(control, TVGN_CHILD, item);
      item = child ? child : NextBeside();
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return item == 0; }

   private:
    // The next sibling of the item, or of its nearest ancestor below the root that has one.
    Item NextBeside() const {
      for (Item up = item; up && up != root; up = NextItem(control, TVGN_PARENT, up)) {
        const Item sibling = NextItem(control, TVGN_NEXT, up);
        if (sibling) return sibling;
      }
      return 0;
    }

    HWND control = nullptr;
    Item root = 0;
    Item item = 0;
  };

  Iterator begin() const { return {control, root}; }
  std::default_sentinel_t end() const { return {}; }

 private:
  HWND control;
  Item root;
};
