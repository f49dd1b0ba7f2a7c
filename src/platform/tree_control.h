// Messages to a native tree control, in the platform's own words.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <iterator>

namespace tree {

// A native item handle as a number; 0 is none.
using Item = std::int64_t;

// State images: 0 shows no box.
constexpr UINT kStateImageShift = 12;
constexpr UINT kEmptyBox = 1;
constexpr UINT kTickedBox = 2;

inline HTREEITEM Handle(Item item) { return reinterpret_cast<HTREEITEM>(item); }

inline Item InsertItem(HWND control, TVINSERTSTRUCTW& insert) {
  return SendMessageW(control, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
}

inline bool SetItem(HWND control, TVITEMW& item) {
  return static_cast<std::int32_t>(
             SendMessageW(control, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item))) != 0;
}

inline bool GetItem(HWND control, TVITEMW& item) {
  return SendMessageW(control, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

inline bool DeleteItem(HWND control, Item item) {
  return static_cast<std::int32_t>(SendMessageW(control, TVM_DELETEITEM, 0, item)) != 0;
}

inline void DeleteAllItems(HWND control) {
  SendMessageW(control, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
}

inline Item NextItem(HWND control, WPARAM relation, Item item) {
  return SendMessageW(control, TVM_GETNEXTITEM, relation, item);
}

inline Item FirstItem(HWND control) { return NextItem(control, TVGN_ROOT, 0); }
inline Item Caret(HWND control) { return NextItem(control, TVGN_CARET, 0); }
inline Item NextVisible(HWND control, Item item) {
  return NextItem(control, TVGN_NEXTVISIBLE, item);
}

// Clears the selected bit of the old caret and sets that of the new; 0 leaves no caret.
inline void MoveCaret(HWND control, Item item) {
  SendMessageW(control, TVM_SELECTITEM, TVGN_CARET, item);
}

inline UINT ItemState(HWND control, Item item, UINT mask) {
  return static_cast<UINT>(
             SendMessageW(control, TVM_GETITEMSTATE, static_cast<WPARAM>(item), mask)) &
         mask;
}

inline void SetItemState(HWND control, Item item, UINT state, UINT mask) {
  TVITEMW change{};
  change.mask = TVIF_STATE;
  change.hItem = Handle(item);
  change.state = state;
  change.stateMask = mask;
  SetItem(control, change);
}

inline bool IsSelected(HWND control, Item item) {
  return (ItemState(control, item, TVIS_SELECTED) & TVIS_SELECTED) != 0;
}

// Changes the selected bit and nothing else: the caret stays and the control reports nothing.
inline void MarkSelected(HWND control, Item item, bool selected) {
  SetItemState(control, item, selected ? TVIS_SELECTED : 0, TVIS_SELECTED);
}

inline UINT StateImage(HWND control, Item item) {
  return ItemState(control, item, TVIS_STATEIMAGEMASK) >> kStateImageShift;
}

inline void SetStateImage(HWND control, Item item, UINT image) {
  SetItemState(control, item, image << kStateImageShift, TVIS_STATEIMAGEMASK);
}

// The tests that walks ask of each item.
inline auto SelectedIn(HWND control) {
  return [control](Item item) { return IsSelected(control, item); };
}

inline auto TickedIn(HWND control) {
  return [control](Item item) { return StateImage(control, item) == kTickedBox; };
}

inline void Expand(HWND control, Item item, WPARAM action) {
  SendMessageW(control, TVM_EXPAND, action, item);
}

inline void EnsureVisible(HWND control, Item item) {
  SendMessageW(control, TVM_ENSUREVISIBLE, 0, item);
}

// `hit` holds the point in client coordinates and receives the platform's hit flags.
inline Item HitTest(HWND control, TVHITTESTINFO& hit) {
  return SendMessageW(control, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
}

inline void SetImageList(HWND control, WPARAM kind, HIMAGELIST images) {
  SendMessageW(control, TVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(images));
}

inline HIMAGELIST ImageList(HWND control, WPARAM kind) {
  return reinterpret_cast<HIMAGELIST>(SendMessageW(control, TVM_GETIMAGELIST, kind, 0));
}

inline void SetBkColor(HWND control, COLORREF color) {
  SendMessageW(control, TVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
}

inline void SetTextColor(HWND control, COLORREF color) {
  SendMessageW(control, TVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color));
}

inline HWND ToolTip(HWND control) {
  return reinterpret_cast<HWND>(SendMessageW(control, TVM_GETTOOLTIPS, 0, 0));
}

// The visible items from the top down. The next item is asked for only when the loop goes on, so
// what the body expands or collapses counts.
class VisibleItems {
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

// An item and all its descendants, collapsed or not, parents before children.
class BranchItems {
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
    // The next sibling of the item or of its nearest ancestor below the root that has one.
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

}  // namespace tree
