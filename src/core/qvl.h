/// \file
/// qvl: a tree and a flat list of named items, each of which may stand for a file, behind one
/// interface. A host includes this header and links the import library.
///
/// The binary contract:
///
/// 1. Order. The virtual operations of IQVLTreeView, IQVLTreeViewClient and the two record classes
///    are in the order of their declaration. IQVLTreeView has its destructor last, the records have
///    theirs first, and the client interface has none. New operations are never inserted.
/// 2. Ownership. The host owns the records, the client object, every image list that it sets and
///    every list that it passes. A view reads a record only during the call. The library owns the
///    views: GetIQVLTreeView creates one and ReleaseIQVLTreeView destroys it. The two lists of a
///    drag or a context menu belong to the view; the client only appends to them.
/// 3. Threads. All calls and callbacks happen on the thread that created the view's windows.
///    Nothing is locked.
/// 4. Set-up. Before the first Create the host loads the common controls: it calls
///    InitCommonControlsEx, or it has a manifest for them and uses them. Before a drag it calls
///    OleInitialize on the view's thread. The library calls neither.
/// 5. Exceptions. No operation throws, and no callback may throw. If memory runs out, an operation
///    returns its failure value.
/// 6. One allocator, one compiler family. ItemHandleList and FileNameList grow on both sides of the
///    boundary. Host and library must use the same compiler family, the same standard library and
///    one allocator.
/// 7. Failure is a plain result: false, null, 0 or -1, as each operation describes. Nothing is
///    shown or logged. An operation on a view without a control returns its failure value.
/// 8. Lifetime. A callback may end the view by Destroy, Create or ReleaseIQVLTreeView. The
///    interrupted operation then makes no further call and returns its failure value.
/// 9. Handles. -1 means no item; each operation describes what it does with it. Every other handle
///    goes to the native control as it is. It must be 0 or a handle that the view returned and that
///    has not been deleted.
#pragma once

#include "qvl_records.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <vector>

/// The version of this header and of the library that belongs to it.
#define QVL_VERSION "1.1.0"

/// Identifies an item. In a tree it is the native item handle, and a real item is never 0 or -1.
/// In a list it is the row's present index from 0, so it changes when an earlier row is deleted.
using ItemHandle = std::int64_t;

/// A list of items. Whoever passes it owns it.
using ItemHandleList = std::vector<ItemHandle>;

/// A list of file names, UTF-16. Whoever passes it owns it.
using FileNameList = std::vector<std::basic_string<WCHAR>>;

/// \name View types
/// Results of IQVLTreeView::GetViewType.
/// \{
constexpr int QVLVT_NONE = -1;  ///< before the first Create
constexpr int QVLVT_TREE = 1;   ///< a tree
constexpr int QVLVT_LIST = 2;   ///< a list
/// \}

/// \name Style flags
/// The `style` argument of IQVLTreeView::Create. A flag has no effect on a presentation that its
/// comment leaves out.
/// \{
constexpr std::uint32_t QVLS_SHOWSELALWAYS = 0x0001;   ///< selection shows without the focus
constexpr std::uint32_t QVLS_BORDER = 0x0002;          ///< WS_BORDER
constexpr std::uint32_t QVLS_CHECKBOXES = 0x0004;      ///< a check box for each item
constexpr std::uint32_t QVLS_HASBUTTONS = 0x0008;      ///< tree: plus and minus buttons
constexpr std::uint32_t QVLS_HASLINES = 0x0010;        ///< tree: lines; list: grid lines
constexpr std::uint32_t QVLS_LINESATROOT = 0x0020;     ///< tree: lines at the top level
constexpr std::uint32_t QVLS_INFOTIP = 0x0040;         ///< the client supplies tool tips
constexpr std::uint32_t QVLS_LISTVIEW = 0x0080;        ///< a list instead of a tree
constexpr std::uint32_t QVLS_NODRAGDROP = 0x0100;      ///< tree: items cannot be dragged
constexpr std::uint32_t QVLS_NOCOLUMNHEADER = 0x0200;  ///< list: no header
constexpr std::uint32_t QVLS_SINGLESEL = 0x0400;       ///< at most one selected item
constexpr std::uint32_t QVLS_EDITLABELS = 0x0800;      ///< tree: labels can be edited in place
constexpr std::uint32_t QVLS_FULLROWSELECT = 0x1000;  ///< tree: the whole row selects; list: always
constexpr std::uint32_t QVLS_SORTHEADER = 0x2000;     ///< list: column titles can be clicked
/// \}

/// \name Hit flags
/// Where a point is. Several can be set at once.
/// \{
constexpr std::uint32_t QVLHT_ABOVE = 0x0001;    ///< above the items; list: also on the state icon
constexpr std::uint32_t QVLHT_BELOW = 0x0002;    ///< below the client area
constexpr std::uint32_t QVLHT_NOWHERE = 0x0004;  ///< in the client area, below the last item
constexpr std::uint32_t QVLHT_ONITEM = 0x0008;   ///< tree: on icon, label or state icon
constexpr std::uint32_t QVLHT_ONITEMBUTTON = 0x0010;     ///< tree: on the plus or minus button
constexpr std::uint32_t QVLHT_ONITEMICON = 0x0020;       ///< on the icon
constexpr std::uint32_t QVLHT_ONITEMINDENT = 0x0040;     ///< tree: on the indent
constexpr std::uint32_t QVLHT_ONITEMLABEL = 0x0080;      ///< on the text
constexpr std::uint32_t QVLHT_ONITEMRIGHT = 0x0100;      ///< tree: right of the label
constexpr std::uint32_t QVLHT_ONITEMSTATEICON = 0x0200;  ///< list: always with QVLHT_ABOVE
constexpr std::uint32_t QVLHT_TOLEFT = 0x0400;           ///< left of the client area
constexpr std::uint32_t QVLHT_TORIGHT = 0x0800;          ///< right of the client area
/// \}

class IQVLTreeView;

/// The callbacks of a view. The host implements this class, passes the object to SetClient and
/// keeps it alive until SetClient(nullptr), Destroy or the end of the view. The library never
/// deletes it.
///
/// `view` is always the pointer that GetIQVLTreeView returned. All callbacks are synchronous, on
/// the view's thread. A callback may call any operation of the view, SetClient included: each call
/// goes to the client that the view has at that moment.
///
/// Selection brackets. OnBeginSelectionChange and OnEndSelectionChange come in pairs and may nest
/// in a tree. OnItemSelectionChanged comes between them, or alone where the native control moves
/// its selection by itself. In a list each change of a row, of its box or its text too, is a
/// bracket with one report in it.
class IQVLTreeViewClient {
 public:
  /// The user asks for a context menu at the screen position `x`, `y` in pixels (-1, -1 from the
  /// keyboard). `item` is the item at that position. It is selected by then, as by HitTest with
  /// `select`. On empty space `item` is -1 and `hitFlags` is 0. The client may call
  /// ShowContextMenu.
  virtual void OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item,
                             std::uint32_t hitFlags) = 0;

  /// The tool tip of `item` is about to show. Result: true replaces the control's own text by
  /// `*text` (null on entry) and its length by `*length` in characters (0 on entry); false keeps
  /// them. The text is not copied and must live as long as the tip. `hitFlags` is where the
  /// mouse is.
  virtual bool OnGetInfoTip(IQVLTreeView* view, ItemHandle item, WCHAR** text, int* length,
                            std::uint32_t hitFlags) = 0;

  /// The user begins to drag the selected `items`. The client appends the names of the files to
  /// drag to `files`, which is empty. Result: true with at least one name starts the drag.
  ///
  /// The drop target gets a data object that is valid until the drag ends. The library then
  /// disconnects receivers in other processes. A receiver in the host's own process must not keep
  /// the object: there is nothing that could disconnect it.
  virtual bool OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) = 0;

  /// List only, inside Create: the client may make the columns of `listWindow`. `clientRect` is a
  /// copy of its client area in pixels. Result: true if the client made the columns, and the
  /// list never changes their widths; false makes one column as wide as the client area.
  virtual bool OnCreateColumns(IQVLTreeView* view, HWND listWindow, RECT* clientRect) = 0;

  /// ShowContextMenu asks which files the selected `items` stand for. The client appends their full
  /// paths to `files`, which is empty. Result: true with at least one name shows the menu.
  ///
  /// \warning All names must be files of one folder, and all must exist. The shell's menu belongs
  /// to the folder of the first name. For a name of another folder the command, Delete too, acts on
  /// the file of that name in the first folder, or on the first folder itself if there is none. If
  /// the selection spans folders or a file is missing, return false.
  virtual bool OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items,
                                  FileNameList* files) = 0;

  /// A label edit begins or ends. `code` is TVN_BEGINLABELEDITW, TVN_ENDLABELEDITW,
  /// LVN_BEGINLABELEDITW or LVN_ENDLABELEDITW, and `record` is the platform's NMTVDISPINFOW or
  /// NMLVDISPINFOW. Result: at the begin codes true cancels the edit; at the end codes true accepts
  /// the new text. In a tree with QVLS_EDITLABELS a plain press on a label may begin an edit; a
  /// client that wants edits only on its own request cancels the others.
  virtual bool OnLabelEdit(IQVLTreeView* view, NMHDR* record, std::uint32_t code) = 0;

  /// A change of the selection begins.
  ///
  /// An operation over many items suspends the drawing of a visible control from the ninth changed
  /// item to its end. A dialog that a client shows meanwhile is shown over a view that does not
  /// repaint.
  virtual void OnBeginSelectionChange(IQVLTreeView* view) = 0;

  /// The selected state of `item` may have changed; IsItemSelected gives it. In a tree, item 0
  /// means that the caret has left all items. In a list, item -1 means that all rows changed.
  virtual void OnItemSelectionChanged(IQVLTreeView* view, ItemHandle item) = 0;

  /// The change of the selection has ended.
  virtual void OnEndSelectionChange(IQVLTreeView* view) = 0;

  /// List only: the user clicked the title of `column`, which counts from 0.
  virtual void OnColumnClick(IQVLTreeView* view, int column) = 0;

  /// Tree only: `item` has been expanded or collapsed; IsItemExpanded gives which.
  virtual void OnItemExpanded(IQVLTreeView* view, ItemHandle item) = 0;

 protected:
  /// Not virtual: the library never deletes a client.
  ~IQVLTreeViewClient() = default;
};

/// A view. Before Create and after Destroy it has no control, and every operation returns its
/// failure value. Calling order: GetIQVLTreeView, SetClient, Create, the other operations,
/// ReleaseIQVLTreeView.
///
/// The visible items of a tree are those that no collapsed parent hides, whether or not they are
/// scrolled into view.
class IQVLTreeView {
 public:
  /// Makes a tree, or with QVLS_LISTVIEW a list, at `x`, `y` with `width` and `height`, in pixels
  /// of `parent`'s client area. `style` holds style flags; `styleExt` may be null. The view's
  /// previous control and items are destroyed first; only the client stays. Result: the native
  /// control, or null.
  ///
  /// The library puts a window of its own between `parent` and the control, which has the id
  /// `controlId` in it. So GetDlgItem(parent, controlId) finds nothing, and WM_NOTIFY of the
  /// control does not reach the host. The control always has WS_EX_CLIENTEDGE. A list calls
  /// OnCreateColumns.
  virtual HWND Create(HWND parent, int controlId, int x, int y, int width, int height,
                      std::uint32_t style, QVLTreeViewStyleExt* styleExt) = 0;

  /// Destroys the control with all items. The view forgets the use of system icons and the
  /// selection mode, and makes no more callbacks. Create can follow; the view then has the same
  /// client.
  virtual void Destroy() = 0;

  /// QVLVT_TREE, QVLVT_LIST, or QVLVT_NONE before the first Create.
  virtual int GetViewType() = 0;

  /// Sets the images of the items. The host keeps the list and destroys it after the view. Result:
  /// false without a control.
  virtual bool SetImageList(HIMAGELIST images) = 0;

  /// From now on items show the shell's small icon of their file. Result: false without a control,
  /// or if the shell has no icons. In a tree call SetBkColor first: the icons are copied onto that
  /// colour, which is black at the beginning.
  virtual bool UseSystemImageList() = 0;

  /// Sets the state images; 1 and 2 are the empty and the checked box. The host keeps the list and
  /// destroys it after the view. Result: false without a control.
  ///
  /// A view with check boxes frees the images that its control made, if the control still holds
  /// them when it is destroyed. A host that replaces them must destroy them itself: it gets them
  /// from the control (TVM_GETIMAGELIST, LVM_GETIMAGELIST) before. A host that uses them in another
  /// view as well must take them out of that view first.
  virtual bool SetStateImageList(HIMAGELIST images) = 0;

  /// Sets the background colour, in a list that of the text too. Result: false without a control.
  /// All trees with system icons share one background for their icons: the colour set last.
  virtual bool SetBkColor(COLORREF color) = 0;

  /// Sets the text colour. Result: false without a control.
  virtual bool SetTextColor(COLORREF color) = 0;

  /// Tree: switches multiple selection on or off; selected items stay selected. List: only stores
  /// the value, since QVLS_SINGLESEL fixed the mode. Does nothing before the first Create.
  virtual void SetMultiSelect(bool enabled) = 0;

  /// The stored value: in a tree true unless created with QVLS_SINGLESEL, in a list false until
  /// SetMultiSelect. False before the first Create.
  virtual bool GetMultiSelect() = 0;

  /// Sets the object whose callbacks are called; null for none. The view keeps it across Destroy
  /// and Create. A new client gets all calls from here on, also the end of a bracket that is open.
  virtual void SetClient(IQVLTreeViewClient* client) = 0;

  /// The native control, null without one. What is the library's: of a tree the user data and the
  /// window procedure; of a list nothing but a window procedure that passes every message on, whose
  /// place a host's own procedure may take above it. A list's user data is the host's.
  virtual HWND GetControlWindow() = 0;

  /// Moves the view, in pixels of the parent's client area, without repainting. A list fits its
  /// column unless the client made the columns. Result: false without a control.
  virtual bool Move(int x, int y, int width, int height) = 0;

  /// Deletes all items. In a tree the client gets the reports of the caret that the control makes.
  virtual void DeleteAllItems() = 0;

  /// \name Showing
  /// \{

  /// Hide, show or invalidate the control. Nothing without a control.
  virtual void Hide() = 0;
  virtual void Show() = 0;
  virtual void Redraw() = 0;
  /// \}

  /// Tree: the positions of the scroll bars, 0 where there is none. List: pixels scrolled. Neither
  /// pointer may be null. Result: false without a control; nothing is written then.
  virtual bool GetScrollPosition(int* x, int* y) = 0;

  /// Tree: sets the positions of the scroll bars. List: scrolls by `x`, `y` pixels, so it does not
  /// reverse GetScrollPosition.
  virtual void SetScrollPosition(int x, int y) = 0;

  /// Sets the greatest width of a tool tip in pixels; -1 for one line of any width.
  virtual void SetToolTipWidth(int width) = 0;

  /// Sets the time in milliseconds until a tool tip shows. Only the low 16 bits are used.
  virtual void SetToolTipDelay(int delay) = 0;

  /// Adds an item from the record, which must not be null. Result: the new item; -1 on failure and
  /// without a control, 0 before the first Create. A record with SetSelected selects the item, and
  /// the client gets the reports that the control makes.
  ///
  /// Tree: the item becomes the last child of `parent`; 0 and -1 mean the top level. A record with
  /// a cell number other than 0 is refused.
  ///
  /// List: the record becomes a new row after those inserted before, indented by one more than row
  /// `parent` (-1 for none). A record with a cell number above 0 and a `parent` sets the text of
  /// that cell; the result is the row.
  virtual ItemHandle InsertItem(QVLTreeViewItem* item, ItemHandle parent) = 0;

  /// Rewrites an item, or in a list a cell, from the record, which must not be null. Result: false
  /// without a control, for -1, for a cell number in a tree, and if the control refuses.
  virtual bool UpdateItem(QVLTreeViewItem* item, ItemHandle handle) = 0;

  /// Deletes an item, in a tree with its branch. Result: true if the control deleted it; false for
  /// -1. In a tree, DeleteItem(0) deletes all items; GetParentItem of a top-level item returns 0.
  virtual bool DeleteItem(ItemHandle handle) = 0;

  /// Appends items to `items`, which must not be null. Tree: the visible items, or with
  /// `visibleOnly` false the first top-level item and all items below it, but not its siblings.
  /// List: all rows. Result: the length of the list afterwards; 0 without a control. If memory runs
  /// out, the list keeps what it has by then.
  virtual std::int64_t GetItems(ItemHandleList* items, bool visibleOnly) = 0;

  /// \name Neighbours
  /// \{

  /// Parent, first child and next sibling. -1 without a control and for -1.
  ///
  /// Tree: 0 where there is none. GetFirstChildItem(0) is the first top-level item. GetParentItem
  /// of a top-level item returns 0; do not pass that to DeleteItem.
  ///
  /// List: the row before, the row after and the row after, whatever the indents; -1 where there is
  /// none. GetParentItem does not check that its argument exists.
  virtual ItemHandle GetParentItem(ItemHandle handle) = 0;
  virtual ItemHandle GetFirstChildItem(ItemHandle handle) = 0;
  virtual ItemHandle GetNextSiblingItem(ItemHandle handle) = 0;
  /// \}

  /// Tree: expands or collapses an item. The handle goes to the control unchecked, -1 too. The
  /// control reports only the first expansion of an item by this operation. List: does nothing.
  virtual void ExpandItem(ItemHandle handle, bool expand) = 0;

  /// Tree: whether the item is expanded; false for -1. List: false.
  virtual bool IsItemExpanded(ItemHandle handle) = 0;

  /// \name All branches
  /// \{

  /// Tree: ExpandAll expands every item, CollapseAll collapses the top-level items. List: nothing.
  virtual void ExpandAll() = 0;
  virtual void CollapseAll() = 0;
  /// \}

  /// Scrolls the item into view. -1 is the first item.
  virtual void EnsureVisible(ItemHandle handle) = 0;

  /// Finds the item at a point in screen pixels, which must not be null and is not changed. Result:
  /// the item; -1 for none, 0 before the first Create. `hitFlags` may be null; otherwise it gets
  /// the hit flags, 0 with -1. Before the first Create it is not written.
  ///
  /// With `select` an item that is not selected becomes the selection. The client gets a selection
  /// bracket (tree) or the reports of the control (list). If a callback deletes the item, the
  /// result is -1.
  virtual ItemHandle HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) = 0;

  /// The client value of the item's record. 0 if the item cannot be read, and for 0 in a tree.
  virtual std::int64_t GetItemClientPtr(ItemHandle handle) = 0;

  /// Number of selected items, in a tree of the visible ones, so it changes when a branch is
  /// collapsed. 0 without a control.
  virtual int GetSelectedCount() = 0;

  /// Selected item number `index`, from 0, from top to bottom. -1 if there are not so many, 0
  /// without a control. Each call walks from the first item.
  virtual ItemHandle GetSelectedItem(int index) = 0;

  /// Selects or deselects one item; nothing for -1. Tree: the client gets a bracket with one report
  /// in any case. List: the client gets a bracket if the row changes.
  virtual void SetItemSelected(ItemHandle handle, bool selected) = 0;

  /// Whether the item is selected. False for -1 and without a control.
  virtual bool IsItemSelected(ItemHandle handle) = 0;

  /// \name Whole selection
  /// \{

  /// Select all, none, or the opposite. Tree: the visible items, in one bracket. List: a bracket
  /// for each row that changes.
  virtual void SelectAll() = 0;
  virtual void ClearSelection() = 0;
  virtual void InvertSelection() = 0;
  /// \}

  /// Number of items whose state image is 2, the checked box; in a tree of the visible ones, so it
  /// changes when a branch is collapsed. 0 without a control.
  virtual int GetCheckedCount() = 0;

  /// Checked item number `index`; same rules as GetSelectedItem.
  virtual ItemHandle GetCheckedItem(int index) = 0;

  /// Sets state image 2 for true, 1 for false; nothing for -1. The tree makes no callback.
  virtual void SetItemChecked(ItemHandle handle, bool checked) = 0;

  /// True unless the state image is 1, so also for an item without a box. False for -1 and without
  /// a control.
  virtual bool IsItemChecked(ItemHandle handle) = 0;

  /// \name All boxes
  /// \{

  /// CheckAll checks every empty box, UncheckAll empties every checked box. Other state images
  /// stay. Tree: the visible items.
  virtual void CheckAll() = 0;
  virtual void UncheckAll() = 0;
  /// \}

  /// Shows the shell's context menu at a screen position in pixels, for the files that
  /// OnShellContextMenu names, and runs the command that the user picks. Returns when the menu has
  /// closed. Result: false without a client, a selected item or a name, and if the shell does not
  /// know the first name. True does not say that a menu was shown.
  virtual bool ShowContextMenu(int x, int y) = 0;

  /// Called by ReleaseIQVLTreeView only.
  virtual ~IQVLTreeView() = default;
};

extern "C" {

/// Creates a view without a control. The caller destroys it with ReleaseIQVLTreeView. Null if there
/// is no memory.
QVL_API IQVLTreeView* GetIQVLTreeView();

/// Destroys a view with its windows and items. Null is ignored.
QVL_API void ReleaseIQVLTreeView(IQVLTreeView* view);
}
