// qvl: a tree and a flat list of named items, each of which may stand for a file, behind one
// interface. A host includes this header, links the import library and nothing else.
//
// The binary contract
//
// 1. Order. The virtual operations of IQVLTreeView, IQVLTreeViewClient and the two record classes
//    stand in the order of their declaration. IQVLTreeView has its destructor last, the records
//    have theirs first, the client interface has none. New operations never come in between.
// 2. Ownership. The host owns the records, the client object, every image list it hands over and
//    every list it passes. A view reads a record only during the call. The library owns the views:
//    they come from GetIQVLTreeView and go with ReleaseIQVLTreeView. The two lists of a drag or a
//    context menu belong to the view; the client only adds to them.
// 3. Threads. Everything happens on the thread that created the view's windows. Nothing is locked.
//    Drags need OleInitialize on that thread; the library does not call it.
// 4. Exceptions. No operation throws, and none may leave a callback. Out of memory is answered
//    with the failure value of the operation.
// 5. One allocator, one compiler family. ItemHandleList and FileNameList grow on either side of
//    the boundary, so host and library are built with the same compiler family, the same standard
//    library and share its allocator.
// 6. Failure is a plain result: false, null, 0 or -1, as told at each operation. Nothing is shown
//    and nothing is logged. An operation on a view without a control gives its failure value.
// 7. Lifetime. A callback may end the view: Destroy, a new Create or ReleaseIQVLTreeView. After
//    that the interrupted operation makes no further call and gives its failure value.
// 8. Handles. -1 is checked everywhere. Any other handle goes to the native control as it is: it
//    must be 0 or one that the view gave and that has not been deleted since.
#ifndef QVL_QVL_H
#define QVL_QVL_H

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <vector>

#ifdef QVL_BUILD
#define QVL_API __declspec(dllexport)
#else
#define QVL_API __declspec(dllimport)
#endif

// Identifies an item. In a tree it is the native item handle, and a real item is never 0 or -1.
// In a list it is the row's present index from 0, so it moves when an earlier row is deleted.
using ItemHandle = std::int64_t;

using ItemHandleList = std::vector<ItemHandle>;
using FileNameList = std::vector<std::basic_string<WCHAR>>;

// Style flags of IQVLTreeView::Create. A flag that a presentation does not name has no effect
// there.
constexpr std::uint32_t QVLS_SHOWSELALWAYS = 0x0001;   // selection shows without the focus
constexpr std::uint32_t QVLS_BORDER = 0x0002;          // WS_BORDER
constexpr std::uint32_t QVLS_CHECKBOXES = 0x0004;      // a check box for each item
constexpr std::uint32_t QVLS_HASBUTTONS = 0x0008;      // tree: plus and minus buttons
constexpr std::uint32_t QVLS_HASLINES = 0x0010;        // tree: lines; list: grid lines
constexpr std::uint32_t QVLS_LINESATROOT = 0x0020;     // tree: lines at the top level
constexpr std::uint32_t QVLS_INFOTIP = 0x0040;         // the client is asked for tool tips
constexpr std::uint32_t QVLS_LISTVIEW = 0x0080;        // a list instead of a tree
constexpr std::uint32_t QVLS_NODRAGDROP = 0x0100;      // tree: items cannot be dragged
constexpr std::uint32_t QVLS_NOCOLUMNHEADER = 0x0200;  // list: no header
constexpr std::uint32_t QVLS_SINGLESEL = 0x0400;       // one selected item at most
constexpr std::uint32_t QVLS_EDITLABELS = 0x0800;      // tree: labels can be edited in place
constexpr std::uint32_t QVLS_FULLROWSELECT = 0x1000;   // tree: the whole row selects; list: always
constexpr std::uint32_t QVLS_SORTHEADER = 0x2000;      // list: the header's titles can be clicked

// Hit flags: where a point lies. Several can hold at once.
constexpr std::uint32_t QVLHT_ABOVE = 0x0001;
constexpr std::uint32_t QVLHT_BELOW = 0x0002;
constexpr std::uint32_t QVLHT_NOWHERE = 0x0004;
constexpr std::uint32_t QVLHT_ONITEM = 0x0008;        // tree: on icon, label or state icon
constexpr std::uint32_t QVLHT_ONITEMBUTTON = 0x0010;  // tree: on the plus or minus button
constexpr std::uint32_t QVLHT_ONITEMICON = 0x0020;
constexpr std::uint32_t QVLHT_ONITEMINDENT = 0x0040;  // tree only
constexpr std::uint32_t QVLHT_ONITEMLABEL = 0x0080;
constexpr std::uint32_t QVLHT_ONITEMRIGHT = 0x0100;      // tree only
constexpr std::uint32_t QVLHT_ONITEMSTATEICON = 0x0200;  // in the list together with QVLHT_ABOVE
constexpr std::uint32_t QVLHT_TOLEFT = 0x0400;
constexpr std::uint32_t QVLHT_TORIGHT = 0x0800;

// What the host says of one item or cell. A view reads it only during InsertItem or UpdateItem,
// so one record can be filled again and again. Plain data of the thread that uses it.
class QVL_API QVLTreeViewItem {
 public:
  // Type 0, empty texts, no flags, image and state index -1, cell 0, indent offset 0, client
  // value 0.
  QVLTreeViewItem() noexcept;
  virtual ~QVLTreeViewItem();

  // Kind of record. With system icons, 1 has InsertItem look the icon up by the file's base name
  // and extension alone; every other value uses the whole file name.
  virtual void SetType(int type) noexcept;
  virtual int GetType() const noexcept;

  // Text shown for the item or cell, copied. Null and an empty text both empty the field, and so
  // does a text for which there is no memory. The result is never null and holds until the field
  // is set again or the record ends.
  virtual const WCHAR* GetItemName() const noexcept;
  virtual void SetItemName(const WCHAR* name) noexcept;

  // File that the item stands for, from which its shell icon comes. Same rules as the item name.
  virtual const WCHAR* GetFileName() const noexcept;
  virtual void SetFileName(const WCHAR* name) noexcept;

  // True makes the item the caret's (tree) or selects the row (list) once it exists; false
  // leaves the selection as it is.
  virtual void SetSelected(bool value) noexcept;
  virtual bool IsSelected() const noexcept;

  // True ticks the box of a view made with QVLS_CHECKBOXES; false leaves the box as it is.
  virtual void SetChecked(bool value) noexcept;
  virtual bool IsChecked() const noexcept;

  // Drawn as cut. Counts only with a state index other than -1.
  virtual void SetCut(bool value) noexcept;
  virtual bool IsCut() const noexcept;

  // Index into the view's image list. Not read while the view uses system icons.
  virtual void SetImageIndex(int index) noexcept;
  virtual int GetImageIndex() const noexcept;

  // State image: the tree shows image `index`, the list image `index` + 1. With -1 the record sets
  // no state at all, so bold and cut have no effect either.
  virtual void SetStateIndex(int index) noexcept;
  virtual int GetStateIndex() const noexcept;

  // The host's own value, stored with the item and given back by GetItemClientPtr.
  virtual std::int64_t GetClientPtr() const noexcept;
  virtual void SetClientPtr(std::int64_t value) noexcept;

  // Drawn bold, in the tree only. Counts only with a state index other than -1.
  virtual void SetBold(bool value) noexcept;
  virtual bool IsBold() const noexcept;

  // Cell number; 0 is the item itself. The tree refuses any other value; in the list a value
  // above 0 means that cell of an existing row.
  virtual int GetSubItem() const noexcept;
  virtual void SetSubItem(int subItem) noexcept;

  // Added to the depth of a new list row; a negative depth counts as 0.
  virtual int GetIndentOffset() const noexcept;
  virtual void SetIndentOffset(int offset) noexcept;

  // A copy could fail for lack of memory, and a record has no way to say so.
  QVLTreeViewItem(const QVLTreeViewItem&) = delete;
  QVLTreeViewItem& operator=(const QVLTreeViewItem&) = delete;

 private:
  std::int32_t type = 0;
  std::basic_string<WCHAR> itemName;
  std::basic_string<WCHAR> fileName;
  std::uint32_t flags = 0;
  std::int32_t imageIndex = -1;
  std::int32_t stateIndex = -1;
  std::int32_t subItem = 0;
  std::int32_t indentOffset = 0;
  std::int64_t clientPtr = 0;
};

// Platform style bits that Create adds to those of its flags. All 0 at first.
class QVL_API QVLTreeViewStyleExt {
 public:
  QVLTreeViewStyleExt() noexcept;
  virtual ~QVLTreeViewStyleExt();

  // Window style bits of the control.
  virtual void SetStyle(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyle() const noexcept;

  // Extended window style bits of the control.
  virtual void SetStyleEx(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyleEx() const noexcept;

  // Extended list style bits (LVS_EX_...). The tree does not read them.
  virtual void SetStyleExCtrl(std::uint32_t style) noexcept;
  virtual std::uint32_t GetStyleExCtrl() const noexcept;

 private:
  std::uint32_t style = 0;
  std::uint32_t styleEx = 0;
  std::uint32_t styleExCtrl = 0;
};

class IQVLTreeView;

// What a view tells the host and asks of it. The host implements it, hands it to SetClient and
// keeps it alive until SetClient(null), Destroy or the end of the view. The library never deletes
// it. `view` is always the pointer that GetIQVLTreeView gave. All calls are synchronous, on the
// view's thread. A callback may call any operation of the view.
//
// Selection events. Begin and End come in pairs and may nest in a tree; OnItemSelectionChanged
// comes between them, or alone where the native control moves its selection by itself. In a list
// each change of a row, of its box or its text too, is a pair with one report in it.
class IQVLTreeViewClient {
 public:
  // A context menu is asked for at the screen position x, y (-1, -1 from the keyboard). `item` is
  // the item there, already selected, or -1 with hitFlags 0. ShowContextMenu may be called here.
  virtual void OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item,
                             std::uint32_t hitFlags) = 0;

  // The tool tip of `item` is about to show. True: `*text` (null on entry) and `*length`, in
  // characters (0 on entry), replace the control's own. The text is not copied and must outlive
  // the tip. `hitFlags` tells where the mouse is. False: the control's own text stays.
  virtual bool OnGetInfoTip(IQVLTreeView* view, ItemHandle item, WCHAR** text, int* length,
                            std::uint32_t hitFlags) = 0;

  // The user begins to drag the selected `items`. The client adds the names of the files to drag
  // to the empty `files`. True with at least one name starts the drag.
  virtual bool OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) = 0;

  // List only, inside Create: true says that the client made the columns of `listWindow` itself,
  // so that the list leaves their widths alone. `clientRect` is its client area in pixels.
  virtual bool OnCreateColumns(IQVLTreeView* view, HWND listWindow, RECT* clientRect) = 0;

  // ShowContextMenu asks which files the selected `items` stand for. The client adds their names,
  // full paths as a rule, to the empty `files`. True with at least one name shows the menu.
  virtual bool OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items,
                                  FileNameList* files) = 0;

  // A label edit begins or ends. `code` is TVN_BEGINLABELEDITW, TVN_ENDLABELEDITW,
  // LVN_BEGINLABELEDITW or LVN_ENDLABELEDITW, and `record` the platform's NMTVDISPINFOW or
  // NMLVDISPINFOW. True cancels at the begin codes and accepts the new text at the end codes.
  virtual bool OnLabelEdit(IQVLTreeView* view, NMHDR* record, std::uint32_t code) = 0;

  virtual void OnBeginSelectionChange(IQVLTreeView* view) = 0;

  // The selected state of `item` may have changed; IsItemSelected tells. In a tree 0 says that the
  // caret has left all items, in a list -1 that all rows changed.
  virtual void OnItemSelectionChanged(IQVLTreeView* view, ItemHandle item) = 0;

  virtual void OnEndSelectionChange(IQVLTreeView* view) = 0;

  // List only: the header of `column`, from 0, was clicked.
  virtual void OnColumnClick(IQVLTreeView* view, int column) = 0;

  // Tree only: `item` has been expanded or collapsed; IsItemExpanded tells which.
  virtual void OnItemExpanded(IQVLTreeView* view, ItemHandle item) = 0;

 protected:
  // Not virtual: the library never deletes a client.
  ~IQVLTreeViewClient() = default;
};

// A view. Before Create and after Destroy it has no control and every operation gives its failure
// value, named at each operation. Calling order: GetIQVLTreeView, SetClient, Create, the rest,
// ReleaseIQVLTreeView.
//
// "Visible" items of a tree are those that no collapsed parent hides, scrolled into view or not.
class IQVLTreeView {
 public:
  // Makes a tree, or with QVLS_LISTVIEW a list, as child `controlId` inside `parent`, at x, y with
  // width and height in pixels of `parent`'s client area. `styleExt` may be null. What the view
  // held before is destroyed; only the client stays. Result: the native control, or null.
  // A list calls OnCreateColumns from here.
  virtual HWND Create(HWND parent, int controlId, int x, int y, int width, int height,
                      std::uint32_t style, QVLTreeViewStyleExt* styleExt) = 0;

  // Destroys the control with all items, forgets client, image source and selection mode. Create
  // can follow, with the same client.
  virtual void Destroy() = 0;

  // 1 tree, 2 list, -1 before the first Create.
  virtual int GetViewType() = 0;

  // Images of the items. The list stays the host's. False without a control.
  virtual bool SetImageList(HIMAGELIST images) = 0;

  // From now on items show the shell's small icon of their file. False without a control or when
  // the shell has no icons to give.
  virtual bool UseSystemImageList() = 0;

  // State images; 1 and 2 are the empty and the ticked box. The list stays the host's. False
  // without a control.
  virtual bool SetStateImageList(HIMAGELIST images) = 0;

  // Background colour, in a list of the text too. False without a control. All trees with system
  // icons share one background for their icons: the one set last.
  virtual bool SetBkColor(COLORREF color) = 0;

  // Text colour. False without a control.
  virtual bool SetTextColor(COLORREF color) = 0;

  // Tree: switches Shift and Ctrl selection on or off; what is selected stays. List: only stored,
  // since its mode was fixed by QVLS_SINGLESEL. Nothing before the first Create.
  virtual void SetMultiSelect(bool enabled) = 0;

  // The stored value: in a tree true unless created with QVLS_SINGLESEL, in a list false until
  // set. False before the first Create.
  virtual bool GetMultiSelect() = 0;

  // The callback object, or null for none. Kept across Destroy and Create.
  virtual void SetClient(IQVLTreeViewClient* client) = 0;

  // The native control, null without one. Its user data, and a tree's window procedure, are the
  // library's.
  virtual HWND GetControlWindow() = 0;

  // Moves the view, in pixels of the parent's client area, without repainting. A list whose
  // columns are not the client's fits its column. False without a control.
  virtual bool Move(int x, int y, int width, int height) = 0;

  // Removes all items. In a tree the client hears what the control reports of the caret.
  virtual void DeleteAllItems() = 0;

  // Hide, show or invalidate the control.
  virtual void Hide() = 0;
  virtual void Show() = 0;
  virtual void Redraw() = 0;

  // Tree: positions of the scroll bars, 0 where there is none. List: pixels scrolled. Both
  // pointers must be real. False without a control, and nothing is written.
  virtual bool GetScrollPosition(int* x, int* y) = 0;

  // Tree: sets the positions of the scroll bars. List: scrolls by x, y pixels.
  virtual void SetScrollPosition(int x, int y) = 0;

  // Greatest width of a tool tip in pixels, -1 for one line of any width.
  virtual void SetToolTipWidth(int width) = 0;

  // Milliseconds until a tool tip shows; the low 16 bits count.
  virtual void SetToolTipDelay(int delay) = 0;

  // Adds an item from the record, which must be real, and gives its handle. Tree: last child of
  // `parent`, 0 or -1 for the top level; a record with a cell number is refused. List: a new row
  // behind those inserted before, indented by one more than row `parent` (-1 for none); a record
  // with a cell number above 0 and a `parent` sets that cell's text and gives the row. -1 on
  // failure and without a control, 0 before the first Create. A selected record reports as the
  // control does.
  virtual ItemHandle InsertItem(QVLTreeViewItem* item, ItemHandle parent) = 0;

  // Rewrites an item, or in a list a cell, from the record, which must be real. False without a
  // control, for -1, for a cell number in a tree, and when the control refuses.
  virtual bool UpdateItem(QVLTreeViewItem* item, ItemHandle handle) = 0;

  // Deletes an item, in a tree with its branch. True if the control deleted it; false for -1.
  virtual bool DeleteItem(ItemHandle handle) = 0;

  // Appends handles to the host's list, which must be real, and gives its length afterwards, 0
  // without a control. Tree: the visible items, or with `visibleOnly` false the first top-level
  // item and all below it. List: all rows. If memory ends, the list keeps what it has by then.
  virtual std::int64_t GetItems(ItemHandleList* items, bool visibleOnly) = 0;

  // Neighbours. Tree: 0 where there is none. List: the row before, the row after, the row after;
  // -1 where there is none. -1 without a control and for -1.
  virtual ItemHandle GetParentItem(ItemHandle handle) = 0;
  virtual ItemHandle GetFirstChildItem(ItemHandle handle) = 0;
  virtual ItemHandle GetNextSiblingItem(ItemHandle handle) = 0;

  // Tree: expands or collapses. The control reports only the first expansion by this operation.
  // List: nothing.
  virtual void ExpandItem(ItemHandle handle, bool expand) = 0;

  // Tree: whether the item is expanded, false for -1. List: false.
  virtual bool IsItemExpanded(ItemHandle handle) = 0;

  // Tree: expands every item; collapses the top-level items. List: nothing.
  virtual void ExpandAll() = 0;
  virtual void CollapseAll() = 0;

  // Scrolls the item into view; -1 means the first.
  virtual void EnsureVisible(ItemHandle handle) = 0;

  // The item at a point in screen pixels, which must be real and is not changed; -1 for none, 0
  // before the first Create. `hitFlags` may be null. With `select` an item that is not selected
  // becomes the selection, and the client hears of it in a bracket.
  virtual ItemHandle HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) = 0;

  // The value of the record's SetClientPtr; 0 if the item cannot be read, and for 0 in a tree.
  virtual std::int64_t GetItemClientPtr(ItemHandle handle) = 0;

  // Number of selected items, in a tree among the visible ones; 0 without a control.
  virtual int GetSelectedCount() = 0;

  // Selected item number `index`, from 0, from the top down. -1 if there are not so many, 0
  // without a control. Costs a walk from the start.
  virtual ItemHandle GetSelectedItem(int index) = 0;

  // Selects or deselects one item. Tree: Begin, the report and End come in any case. List: the
  // client hears what changed. Nothing for -1.
  virtual void SetItemSelected(ItemHandle handle, bool selected) = 0;

  // Whether the item is selected; false for -1 and without a control.
  virtual bool IsItemSelected(ItemHandle handle) = 0;

  // Whole selection: all, none, the opposite. Tree: of the visible items, in one bracket. List: a
  // bracket for each row that changes.
  virtual void SelectAll() = 0;
  virtual void ClearSelection() = 0;
  virtual void InvertSelection() = 0;

  // Number of items whose state image is 2, the ticked box; in a tree among the visible ones. 0
  // without a control.
  virtual int GetCheckedCount() = 0;

  // Ticked item number `index`, as GetSelectedItem.
  virtual ItemHandle GetCheckedItem(int index) = 0;

  // State image 2 for true, 1 for false. Nothing for -1. The tree tells the client nothing.
  virtual void SetItemChecked(ItemHandle handle, bool checked) = 0;

  // True unless the state image is 1, so also for an item without a box. False for -1 and without
  // a control.
  virtual bool IsItemChecked(ItemHandle handle) = 0;

  // Ticks every empty box, empties every ticked box; other state images stay. Tree: of the visible
  // items.
  virtual void CheckAll() = 0;
  virtual void UncheckAll() = 0;

  // Shows the shell's context menu for the files that the client names for the selected items, at
  // a screen position in pixels, and runs the command picked. Returns when the menu has closed.
  // False without a client, a selection or a name, or when the first file is not known to the
  // shell. True does not say that a menu was shown.
  virtual bool ShowContextMenu(int x, int y) = 0;

  virtual ~IQVLTreeView() = default;
};

extern "C" {

// A new view without a control, to be freed with ReleaseIQVLTreeView. Null if there is no memory.
QVL_API IQVLTreeView* GetIQVLTreeView();

// Ends a view: its windows, its items and itself. Null is ignored.
QVL_API void ReleaseIQVLTreeView(IQVLTreeView* view);
}

#endif
