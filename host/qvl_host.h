/// \file
/// Helpers for hosts of qvl. Optional and header-only: everything here uses the public interface
/// and the messages of the native control, and is no part of the library's binary contract.
///
/// All functions take a view whose control exists, unless they say otherwise, and must be called on
/// the view's thread. None of them throws, except that lists can run out of memory
/// (std::bad_alloc). Functions that make callbacks say so; the others make none.
#pragma once

#include "qvl.h"

#include <shellapi.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace qvl {

/// A client that behaves like no client. Derive from it and override the callbacks you need.
class Client : public IQVLTreeViewClient {
 public:
  virtual ~Client() = default;

  void OnContextMenu(IQVLTreeView*, int, int, ItemHandle, std::uint32_t) override {}
  /// \return false: the control keeps its own tip.
  bool OnGetInfoTip(IQVLTreeView*, ItemHandle, WCHAR**, int*, std::uint32_t) override {
    return false;
  }
  /// \return false: no drag.
  bool OnBeginDrag(IQVLTreeView*, ItemHandleList*, FileNameList*) override { return false; }
  /// \return false: the list makes its one column.
  bool OnCreateColumns(IQVLTreeView*, HWND, RECT*) override { return false; }
  /// \return false: no menu.
  bool OnShellContextMenu(IQVLTreeView*, ItemHandleList*, FileNameList*) override { return false; }
  /// \return false: an edit begins, and its text is not accepted.
  bool OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t) override { return false; }
  void OnBeginSelectionChange(IQVLTreeView*) override {}
  void OnItemSelectionChanged(IQVLTreeView*, ItemHandle) override {}
  void OnEndSelectionChange(IQVLTreeView*) override {}
  void OnColumnClick(IQVLTreeView*, int) override {}
  void OnItemExpanded(IQVLTreeView*, ItemHandle) override {}
};

/// Releases a view. Used by ViewOwner.
struct ViewReleaser {
  /// Releases `view`.
  void operator()(IQVLTreeView* view) const { ReleaseIQVLTreeView(view); }
};

/// Owns a view and releases it once. It can be moved. Declare it after the client, so that the view
/// is released first.
using ViewOwner = std::unique_ptr<IQVLTreeView, ViewReleaser>;

/// \return A new view without a control; null if there is no memory.
inline ViewOwner MakeView() { return ViewOwner(GetIQVLTreeView()); }

/// \return Whether the view is a list.
inline bool IsList(IQVLTreeView& view) { return view.GetViewType() == QVLVT_LIST; }

/// \return The native handle of a tree's item.
inline HTREEITEM NativeItem(ItemHandle item) { return reinterpret_cast<HTREEITEM>(item); }

/// Sends a message with a record to the control.
/// \return The control's result.
template <class Record>
LRESULT SendRecord(IQVLTreeView& view, UINT message, WPARAM wParam, Record& record) {
  return SendMessageW(view.GetControlWindow(), message, wParam, reinterpret_cast<LPARAM>(&record));
}

/// \name Guards
/// \{

/// Suspends the control's drawing while the object exists, and redraws the control once at the end.
/// Guards of one control nest: only the outermost one has an effect. A hidden control is left
/// alone; one in a hidden window is not. Do not hide the control inside the guard.
class DrawingPause {
 public:
  /// Suspends the drawing of the view's control.
  explicit DrawingPause(IQVLTreeView& view) : DrawingPause(view.GetControlWindow()) {}
  /// Suspends the drawing of a control.
  explicit DrawingPause(HWND pausedControl) {
    const LONG_PTR style = GetWindowLongPtrW(pausedControl, GWL_STYLE);
    if (!(style & WS_VISIBLE) || GetPropW(pausedControl, kProperty)) return;
    control = pausedControl;
    SetPropW(control, kProperty, control);
    SendMessageW(control, WM_SETREDRAW, FALSE, 0);
  }
  ~DrawingPause() {
    if (!control) return;
    RemovePropW(control, kProperty);
    SendMessageW(control, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(control, nullptr, nullptr,
                 RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
  }
  DrawingPause(const DrawingPause&) = delete;
  DrawingPause& operator=(const DrawingPause&) = delete;

 private:
  static constexpr const WCHAR* kProperty = L"qvl.DrawingPause";

  HWND control = nullptr;
};

/// Removes the client from the view while the object exists, so that filling makes no callbacks.
/// At the end the view has `client` again. The view must exist until then.
class ClientPause {
 public:
  /// Removes the view's client. `pausedClient` is the one that the view gets back; it may be null.
  ClientPause(IQVLTreeView& pausedView, IQVLTreeViewClient* pausedClient)
      : view(pausedView), client(pausedClient) {
    view.SetClient(nullptr);
  }
  ~ClientPause() { view.SetClient(client); }
  ClientPause(const ClientPause&) = delete;
  ClientPause& operator=(const ClientPause&) = delete;

 private:
  IQVLTreeView& view;
  IQVLTreeViewClient* client;
};
/// \}

/// \name Items
/// Lists of items, each made in one pass, in the order from top to bottom. They are copies: a loop
/// over them may change the view, but must not use an item that it has deleted.
/// \{

/// \return The visible items of a tree, or all rows of a list.
inline ItemHandleList VisibleItems(IQVLTreeView& view) {
  ItemHandleList items;
  view.GetItems(&items, true);
  return items;
}

/// \return The children of a tree's item, none for a list. `parent` 0 is the root.
inline ItemHandleList Children(IQVLTreeView& view, ItemHandle parent) {
  ItemHandleList items;
  if (IsList(view)) return items;
  ItemHandle child = view.GetFirstChildItem(parent);
  for (; child > 0; child = view.GetNextSiblingItem(child)) items.push_back(child);
  return items;
}

/// \return The top-level items of a tree, or all rows of a list.
inline ItemHandleList TopLevelItems(IQVLTreeView& view) {
  return IsList(view) ? VisibleItems(view) : Children(view, 0);
}

/// Appends a tree's item and all its descendants to `items`, parents before children. Of a list the
/// row alone.
inline void AppendBranch(IQVLTreeView& view, ItemHandle item, ItemHandleList& items) {
  items.push_back(item);
  for (const ItemHandle child : Children(view, item)) AppendBranch(view, child, items);
}

/// \return The items of AppendBranch.
inline ItemHandleList Branch(IQVLTreeView& view, ItemHandle item) {
  ItemHandleList items;
  AppendBranch(view, item, items);
  return items;
}

/// \return The selected ones of the visible items.
inline ItemHandleList SelectedItems(IQVLTreeView& view) {
  ItemHandleList items = VisibleItems(view);
  std::erase_if(items, [&view](ItemHandle item) { return !view.IsItemSelected(item); });
  return items;
}

/// \return The item's state image: 0 no box, 1 empty, 2 checked.
inline UINT StateImage(IQVLTreeView& view, ItemHandle item) {
  const UINT message = IsList(view) ? LVM_GETITEMSTATE : TVM_GETITEMSTATE;
  const LRESULT state = SendMessageW(view.GetControlWindow(), message, static_cast<WPARAM>(item),
                                     LVIS_STATEIMAGEMASK);
  return (static_cast<UINT>(state) & LVIS_STATEIMAGEMASK) >> 12;
}

/// \return The checked ones of the visible items. Items without a box are not among them.
inline ItemHandleList CheckedItems(IQVLTreeView& view) {
  ItemHandleList items = VisibleItems(view);
  std::erase_if(items, [&view](ItemHandle item) { return StateImage(view, item) != 2; });
  return items;
}

/// \return The caret of a tree or the focused row of a list; -1 if there is none.
inline ItemHandle FocusedItem(IQVLTreeView& view) {
  const HWND control = view.GetControlWindow();
  if (IsList(view)) {
    return SendMessageW(control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  }
  const LRESULT caret = SendMessageW(control, TVM_GETNEXTITEM, TVGN_CARET, 0);
  return caret ? caret : -1;
}
/// \}

/// \name Places and keys
/// \{

/// \return The item's rectangle in pixels of the control's client area: its label, or with
/// `wholeRow` its whole row. Nothing if a collapsed branch hides the item or there is no such item.
/// The item need not be scrolled into view.
inline std::optional<RECT> ItemRect(IQVLTreeView& view, ItemHandle item, bool wholeRow = false) {
  RECT rect{};
  LRESULT found = 0;
  if (IsList(view)) {
    rect.left = wholeRow ? LVIR_BOUNDS : LVIR_LABEL;
    found = SendRecord(view, LVM_GETITEMRECT, static_cast<WPARAM>(item), rect);
  } else {
    std::memcpy(&rect, &item, sizeof item);  // the message takes the item in the rectangle's place
    found = SendRecord(view, TVM_GETITEMRECT, !wholeRow, rect);
  }
  return found ? std::optional(rect) : std::nullopt;
}

/// \return The screen position in pixels for a context menu that the user asks for by key: below
/// the label of the focused item, or of the first selected item, that is scrolled into view;
/// otherwise the corner of the control.
inline POINT MenuPoint(IQVLTreeView& view) {
  RECT area{};
  GetClientRect(view.GetControlWindow(), &area);
  POINT point{0, 0};
  ItemHandleList candidates{FocusedItem(view)};
  for (const ItemHandle item : SelectedItems(view)) candidates.push_back(item);
  for (const ItemHandle item : candidates) {
    const auto label = item == -1 ? std::nullopt : ItemRect(view, item);
    if (!label || label->bottom <= 0 || label->bottom > area.bottom) continue;
    point = {label->left, label->bottom};
    break;
  }
  ClientToScreen(view.GetControlWindow(), &point);
  return point;
}

/// \return Whether the message is the menu key or Shift+F10 for the view's control. Test it in the
/// message loop, show the menu at MenuPoint, and do not dispatch the message: the key would clear a
/// tree's selection.
inline bool IsMenuKey(IQVLTreeView& view, const MSG& message) {
  if (message.hwnd != view.GetControlWindow()) return false;
  if (message.message == WM_KEYDOWN) return message.wParam == VK_APPS;
  return message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0;
}

/// \return The item that the message activates, by a double click or by Enter; -1 for none. Test it
/// in the message loop; dispatch a double click and drop an Enter.
inline ItemHandle ActivatedItem(IQVLTreeView& view, const MSG& message) {
  if (message.hwnd != view.GetControlWindow()) return -1;
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) return FocusedItem(view);
  if (message.message != WM_LBUTTONDBLCLK) return -1;
  std::uint32_t flags = 0;
  const ItemHandle item = view.HitTest(&message.pt, false, &flags);
  return (flags & (QVLHT_ONITEMLABEL | QVLHT_ONITEMICON)) ? item : -1;
}
/// \}

/// \name Columns of a list
/// \{

/// One column of a list.
struct Column {
  const WCHAR* title;        ///< its title
  int width;                 ///< its width in pixels
  int format = LVCFMT_LEFT;  ///< LVCFMT_LEFT, LVCFMT_RIGHT or LVCFMT_CENTER
};

/// Makes the columns in a list without columns. Call it in OnCreateColumns and return true there.
inline void InsertColumns(HWND list, std::span<const Column> columns) {
  int index = 0;
  for (const Column& column : columns) {
    LVCOLUMNW native{};
    native.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    native.pszText = const_cast<WCHAR*>(column.title);
    native.cx = column.width;
    native.fmt = column.format;
    native.iSubItem = index;
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&native));
    ++index;
  }
}

/// Gives `column`, which counts from 0, the width that the other columns leave of the control's
/// client area, but at least `minimum` pixels, so that the columns fill it exactly. Call it when
/// the size of the list changes, and after filling, because a scroll bar takes a part of the area.
/// A DrawingPause must have ended: the control adds the scroll bar when it draws again.
inline void FitColumn(IQVLTreeView& list, int column, int minimum) {
  const HWND control = list.GetControlWindow();
  const auto header = reinterpret_cast<HWND>(SendMessageW(control, LVM_GETHEADER, 0, 0));
  const auto count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  RECT area{};
  GetClientRect(control, &area);
  int rest = static_cast<int>(area.right);
  for (int index = 0; index < count; ++index) {
    const auto place = static_cast<WPARAM>(index);
    if (index != column) {
      rest -= static_cast<int>(SendMessageW(control, LVM_GETCOLUMNWIDTH, place, 0));
    }
  }
  const int width = rest > minimum ? rest : minimum;
  const auto place = static_cast<WPARAM>(column);
  if (SendMessageW(control, LVM_GETCOLUMNWIDTH, place, 0) == width) return;
  SendMessageW(control, LVM_SETCOLUMNWIDTH, place, width);
}

/// Shows the sort arrow in the title of `column`, which counts from 0, and removes it from all
/// others. -1 removes it everywhere. Version 6 of the common controls draws it.
inline void ShowSortArrow(IQVLTreeView& list, int column, bool descending) {
  const auto header =
      reinterpret_cast<HWND>(SendMessageW(list.GetControlWindow(), LVM_GETHEADER, 0, 0));
  const auto count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  for (int index = 0; index < count; ++index) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    const auto place = static_cast<WPARAM>(index);
    SendMessageW(header, HDM_GETITEMW, place, reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (index == column) item.fmt |= descending ? HDF_SORTDOWN : HDF_SORTUP;
    SendMessageW(header, HDM_SETITEMW, place, reinterpret_cast<LPARAM>(&item));
  }
}
/// \}

/// \name Order and scrolling
/// \{

/// Compares two client values for SortRows and SortChildren.
template <class Less>
int CALLBACK CompareClientValues(LPARAM a, LPARAM b, LPARAM context) {
  const Less& isLess = *reinterpret_cast<const Less*>(context);
  return isLess(a, b) ? -1 : isLess(b, a) ? 1 : 0;
}

/// Sorts the rows of a list by their client values. `less(a, b)` returns whether the row with
/// client value a comes before the row with client value b; it must not throw or change the view.
/// Texts, boxes, selection and client values move with their rows; handles are positions and do
/// not. Uses LVM_SORTITEMS, which makes no callbacks. Rows for which neither is less may change
/// places.
template <class Less>
void SortRows(IQVLTreeView& list, Less less) {
  int(CALLBACK * compare)(LPARAM, LPARAM, LPARAM) = CompareClientValues<Less>;
  SendMessageW(list.GetControlWindow(), LVM_SORTITEMS, reinterpret_cast<WPARAM>(&less),
               reinterpret_cast<LPARAM>(compare));
}

/// Sorts the children of a tree's item by their client values, but not their own children. `parent`
/// 0 is the root. `less` is that of SortRows. Handles, boxes, selection and expansion stay. Makes
/// no callbacks.
template <class Less>
void SortChildren(IQVLTreeView& tree, ItemHandle parent, Less less) {
  TVSORTCB sort{};
  sort.hParent = parent == 0 ? TVI_ROOT : NativeItem(parent);
  sort.lpfnCompare = CompareClientValues<Less>;
  sort.lParam = reinterpret_cast<LPARAM>(&less);
  SendRecord(tree, TVM_SORTCHILDRENCB, 0, sort);
}

/// \return The item at the top of the scrolled view; -1 if there is none.
inline ItemHandle TopItem(IQVLTreeView& view) {
  const HWND control = view.GetControlWindow();
  if (IsList(view)) {
    const LRESULT count = SendMessageW(control, LVM_GETITEMCOUNT, 0, 0);
    return count == 0 ? -1 : SendMessageW(control, LVM_GETTOPINDEX, 0, 0);
  }
  const LRESULT top = SendMessageW(control, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0);
  return top ? top : -1;
}

/// Scrolls so that the visible item is at the top, or as near to it as the number of items allows.
/// With TopItem a host keeps the place of the view while it changes items.
inline void ScrollToTop(IQVLTreeView& view, ItemHandle item) {
  const HWND control = view.GetControlWindow();
  if (!IsList(view)) {
    SendMessageW(control, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, item);
    return;
  }
  const auto row = ItemRect(view, item, true);
  const auto top = ItemRect(view, TopItem(view), true);
  if (row && top) SendMessageW(control, LVM_SCROLL, 0, row->top - top->top);
}
/// \}

/// \name Files
/// \{

/// The shell's small icons, for a view with SetImageList instead of UseSystemImageList: it asks the
/// shell once for each file name extension, and folders have the icon of a folder. The shell owns
/// the image list. Neither control frees it.
class ShellIcons {
 public:
  /// \return The shell's image list for SetImageList; null if the shell has no icons.
  HIMAGELIST ImageList() {
    if (!images) folder = Ask(L"folder", FILE_ATTRIBUTE_DIRECTORY);
    return images;
  }

  /// \return The image index of a folder for SetImageIndex.
  int Folder() {
    ImageList();
    return folder;
  }

  /// \return The image index of a file with that name, for SetImageIndex. The file need not exist.
  int File(std::basic_string_view<WCHAR> name) {
    const std::size_t dot = name.rfind(L'.');
    const auto extension = name.substr(dot == name.npos ? name.size() : dot);
    const auto known = files.find(extension);
    if (known != files.end()) return known->second;
    std::basic_string<WCHAR> key(extension);
    const int icon = Ask((L"file" + key).c_str(), FILE_ATTRIBUTE_NORMAL);
    files.emplace(std::move(key), icon);
    return icon;
  }

 private:
  int Ask(const WCHAR* name, DWORD attributes) {
    SHFILEINFOW info{};
    const DWORD_PTR list =
        SHGetFileInfoW(name, attributes, &info, sizeof info,
                       SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES);
    if (!list) return 0;
    images = reinterpret_cast<HIMAGELIST>(list);
    return info.iIcon;
  }

  HIMAGELIST images = nullptr;
  int folder = 0;
  std::map<std::basic_string<WCHAR>, int, std::less<>> files;
};

/// \return The index of the shell's folder icon, for ShowIcon; -1 if the shell has none. The shell
/// finds icons by file name, so InsertItem shows a folder like a file. Call this before
/// UseSystemImageList, so that the icon is in the view's list.
inline int FolderIcon() {
  SHFILEINFOW info{};
  const DWORD_PTR icons =
      SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info,
                     SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES);
  return icons ? info.iIcon : -1;
}

/// Sets the item's image. `image` is an index into the view's image list. In a list the client gets
/// a selection bracket for the row.
inline void ShowIcon(IQVLTreeView& view, ItemHandle item, int image) {
  if (IsList(view)) {
    LVITEMW row{};
    row.mask = LVIF_IMAGE;
    row.iItem = static_cast<int>(item);
    row.iImage = image;
    SendRecord(view, LVM_SETITEMW, 0, row);
  } else {
    TVITEMW branch{};
    branch.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    branch.hItem = NativeItem(item);
    branch.iImage = image;
    branch.iSelectedImage = image;
    SendRecord(view, TVM_SETITEMW, 0, branch);
  }
}

/// \return Whether all names have the same folder, compared without case. True for no name. The
/// shell's menu needs this: see IQVLTreeViewClient::OnShellContextMenu.
inline bool AreInOneFolder(const FileNameList& names) {
  const auto folder = [](std::basic_string_view<WCHAR> name) {
    const std::size_t end = name.find_last_of(L"\\/");
    return name.substr(0, end == name.npos ? 0 : end);
  };
  for (const auto& name : names) {
    const auto first = folder(names.front());
    const auto other = folder(name);
    if (CompareStringOrdinal(first.data(), static_cast<int>(first.size()), other.data(),
                             static_cast<int>(other.size()), TRUE) != CSTR_EQUAL) {
      return false;
    }
  }
  return true;
}

/// \return The first of the files that does not exist or cannot be reached; null if all exist.
inline const FileNameList::value_type* FirstMissingFile(const FileNameList& names) {
  for (const auto& name : names) {
    if (GetFileAttributesW(name.c_str()) == INVALID_FILE_ATTRIBUTES) return &name;
  }
  return nullptr;
}
/// \}

/// \name Label edits
/// \{

/// What OnLabelEdit is asked about.
struct LabelEdit {
  bool begins;        ///< true at the begin, false at the end
  ItemHandle item;    ///< the edited item
  const WCHAR* text;  ///< at the end the new text, null if the user cancels; null at the begin
};

/// \return The arguments of OnLabelEdit in one form for tree and list.
inline LabelEdit ReadLabelEdit(const NMHDR* record, std::uint32_t code) {
  LabelEdit edit{};
  if (code == LVN_BEGINLABELEDITW || code == LVN_ENDLABELEDITW) {
    const LVITEMW& row = reinterpret_cast<const NMLVDISPINFOW*>(record)->item;
    edit = {code == LVN_BEGINLABELEDITW, row.iItem, row.pszText};
  } else {
    const TVITEMW& branch = reinterpret_cast<const NMTVDISPINFOW*>(record)->item;
    edit = {code == TVN_BEGINLABELEDITW, reinterpret_cast<ItemHandle>(branch.hItem),
            branch.pszText};
  }
  if (edit.begins) edit.text = nullptr;
  return edit;
}

/// Begins to edit the label of an item. The view gets the focus. The tree needs QVLS_EDITLABELS,
/// the list LVS_EDITLABELS through QVLTreeViewStyleExt. Calls OnLabelEdit. \return The edit
/// control; null if the client or the control refuses.
inline HWND BeginLabelEdit(IQVLTreeView& view, ItemHandle item) {
  const HWND control = view.GetControlWindow();
  SetFocus(control);
  const LRESULT edit = IsList(view)
                           ? SendMessageW(control, LVM_EDITLABELW, static_cast<WPARAM>(item), 0)
                           : SendMessageW(control, TVM_EDITLABELW, 0, item);
  return reinterpret_cast<HWND>(edit);
}
/// \}

}  // namespace qvl
