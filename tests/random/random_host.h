#pragma once

#include "qvl.h"

#include <windows.h>

#include <commctrl.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

// Where choices come from: a number from 0 to below the limit. The same numbers make the same
// scenario on every platform.
using Choices = std::function<int(int limit)>;

// A shown window for views.
inline HWND MakeHostWindow() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = TEXT("QVLRandomHost");
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, windowClass.lpszClassName, TEXT("host"), WS_POPUP, 0, 0,
                                      400, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

inline void HandleQueuedMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// A host with one view, and the view's client. Operations take their arguments from its choices.
class RandomHost : public IQVLTreeViewClient {
 public:
  RandomHost(HWND window, bool asList, Choices choices)
      : view(GetIQVLTreeView()), host(window), list(asList), choose(std::move(choices)) {
    view->SetClient(this);
  }

  virtual ~RandomHost() {
    if (view) view->SetClient(nullptr);
    Release();
  }

  RandomHost(const RandomHost&) = delete;
  RandomHost& operator=(const RandomHost&) = delete;

  int Below(int limit) const { return choose(limit); }
  bool OneIn(int chances) const { return Below(chances) == 0; }

  // Makes the view's control with some items. False if it fails or a callback ends the view.
  bool Create() {
    subject = -1;
    if (!view) {
      view = GetIQVLTreeView();
      view->SetClient(this);
    }
    QVLTreeViewStyleExt ext;
    std::uint32_t style = QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT | QVLS_SHOWSELALWAYS;
    if (list) style |= QVLS_LISTVIEW;
    if (OneIn(2)) style |= QVLS_CHECKBOXES;
    if (OneIn(4)) style |= QVLS_SINGLESEL;
    if (editable) style |= QVLS_EDITLABELS;
    if (editable) ext.SetStyle(LVS_EDITLABELS);
    if (outOfRange) style = static_cast<std::uint32_t>(Below(0x4000));
    const HWND window = outOfRange && OneIn(50) ? nullptr : host;
    const HWND control = view->Create(window, kControlId, 0, 0, 260, 380, style, &ext);
    for (int i = 0; i < 6 && control && Control() == control; ++i) Insert();
    return control && Control() == control;
  }

  ItemHandle Insert() {
    if (!outOfRange && Items().size() >= kMostItems) return -1;
    QVLTreeViewItem record;
    Fill(record);
    const ItemHandle item = view->InsertItem(&record, OneIn(2) ? -1 : Item());
    inserted.push_back(item);
    return item;
  }

  void Fill(QVLTreeViewItem& record) {
    record.SetClientPtr(static_cast<std::int64_t>(inserted.size()));
    record.SetItemName(Text().c_str());
    record.SetFileName(Text().c_str());
    record.SetType(Below(3));
    record.SetSelected(OneIn(6));
    record.SetChecked(OneIn(4));
    record.SetStateIndex(OneIn(4) ? Number(0, 2) : -1);
    record.SetBold(OneIn(3));
    record.SetCut(OneIn(3));
    record.SetIndentOffset(Number(-1, 1));
    if (OneIn(15)) record.SetSubItem(Number(-1, 1));
  }

  // The pointer goes first, so that a callback meanwhile does not use the view.
  void Release() { ReleaseIQVLTreeView(std::exchange(view, nullptr)); }

  bool IsList() const { return view && view->GetViewType() == QVLVT_LIST; }
  HWND Control() const { return view ? view->GetControlWindow() : nullptr; }

  // Sends a message to the control, as the user's input does, and handles what it posts.
  LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool toList = IsList();
    listMessages += toList;
    const LRESULT result = SendMessageW(Control(), message, wParam, lParam);
    HandleQueuedMessages();
    listMessages -= toList;
    return result;
  }

  // All items, from the top down, collapsed or not.
  ItemHandleList Items() const {
    ItemHandleList items;
    if (IsList()) {
      view->GetItems(&items, true);
    } else if (Control()) {
      AddBranch(SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_ROOT, 0), items);
    }
    return items;
  }

  // Whether no collapsed branch of a tree holds the item.
  bool IsShown(ItemHandle item) const {
    if (IsList()) return true;
    for (item = view->GetParentItem(item); item > 0; item = view->GetParentItem(item)) {
      if (!view->IsItemExpanded(item)) return false;
    }
    return true;
  }

  // The item by the number that its record got, because handles differ between platforms.
  std::string Name(ItemHandle item) const {
    if (!view || item == -1) return "-1";
    if (item == 0 && !IsList()) return "none";
    return (IsList() ? std::to_string(item) + "/n" : "n") +
           std::to_string(view->GetItemClientPtr(item));
  }

  // The items with their states, and the caret.
  std::string State() const {
    if (!Control()) return " no control";
    std::string state;
    for (const ItemHandle item : Items()) {
      state += " " + Name(item);
      if (view->IsItemSelected(item)) state += "*";
      if (view->IsItemExpanded(item)) state += "-";
      if (!view->IsItemChecked(item)) state += "o";
    }
    if (IsList()) return state;
    return state + " caret " + Name(SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_CARET, 0));
  }

  // An existing item, often that of the current callback, or sometimes -1.
  ItemHandle Item() {
    if (subject != -1 && OneIn(2)) return subject;
    if (outOfRange && OneIn(8)) return static_cast<ItemHandle>(AnyNumber()) << (OneIn(2) ? 32 : 0);
    const ItemHandleList items = outOfRange ? inserted : Items();
    if (items.empty() || OneIn(20)) return -1;
    return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
  }

  // From first to last, both included.
  int Number(int first, int last) {
    return outOfRange && OneIn(2) ? AnyNumber() : first + Below(last - first + 1);
  }

  std::basic_string<WCHAR> Text() {
    if (outOfRange && OneIn(20)) return std::basic_string<WCHAR>(5000, static_cast<WCHAR>(0xD800));
    const std::string text =
        "C:\\item " + std::to_string(inserted.size()) + (OneIn(2) ? ".txt" : "");
    return {text.begin(), text.end()};
  }

  // On the item's label, or rarely its button, if it is in view; otherwise below all items.
  // The real control may still return the former rectangle of an item in a collapsed branch.
  POINT Point(ItemHandle item) {
    if (outOfRange && OneIn(4)) return {AnyNumber(), AnyNumber()};
    if (item == -1 || !IsShown(item)) return kBelowItems;
    union {
      ItemHandle item;
      RECT rect;
    } record = {item};
    if (IsList()) record.rect = {LVIR_LABEL, 0, 0, 0};
    const UINT message = IsList() ? LVM_GETITEMRECT : TVM_GETITEMRECT;
    const WPARAM which = IsList() ? static_cast<WPARAM>(item) : TRUE;
    const LRESULT found =
        SendMessageW(Control(), message, which, reinterpret_cast<LPARAM>(&record.rect));
    const RECT& label = record.rect;
    if (!found || label.top < 0 || label.bottom > kBelowItems.y) return kBelowItems;
    TVHITTESTINFO hit = {};
    hit.pt = {label.left + 4, (label.top + label.bottom) / 2};
    if (IsList() || !OneIn(6)) return hit.pt;
    while (hit.pt.x > 0 && !(hit.flags & TVHT_ONITEMBUTTON)) {
      --hit.pt.x;
      SendMessageW(Control(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    }
    return hit.pt;
  }

  IQVLTreeView* view;
  HWND host;
  bool list;                // what the next Create makes
  bool editable = false;    // labels can be edited
  bool outOfRange = false;  // chooses deleted items, extreme numbers and any style too
  int listMessages = 0;     // that the list is handling
  int openBrackets = 0;

  void OnContextMenu(IQVLTreeView*, int x, int y, ItemHandle item,
                     std::uint32_t hitFlags) override {
    const bool byKey = x == -1 && y == -1;
    CalledAbout((byKey ? "ContextMenu by key " : "ContextMenu ") + Hex(hitFlags), item);
  }
  bool OnGetInfoTip(IQVLTreeView*, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t) override {
    tip = Text();
    *text = tip.data();
    *length = static_cast<int>(tip.size());
    return CalledAbout("InfoTip", item);
  }
  bool OnBeginDrag(IQVLTreeView*, ItemHandleList* items, FileNameList* files) override {
    NameFiles(files);
    return Called("BeginDrag of " + std::to_string(items->size()));
  }
  bool OnCreateColumns(IQVLTreeView*, HWND, RECT*) override { return Called("CreateColumns"); }
  bool OnShellContextMenu(IQVLTreeView*, ItemHandleList* items, FileNameList* files) override {
    NameFiles(files);
    return Called("ShellContextMenu of " + std::to_string(items->size()));
  }
  // Every edit may begin.
  bool OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t code) override {
    const bool begins = code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
    return Called(begins ? "LabelEdit begins" : "LabelEdit ends") && !begins;
  }
  void OnBeginSelectionChange(IQVLTreeView*) override {
    ++openBrackets;
    Called("Begin");
  }
  void OnItemSelectionChanged(IQVLTreeView*, ItemHandle item) override {
    CalledAbout("Changed", item);
  }
  void OnEndSelectionChange(IQVLTreeView*) override {
    --openBrackets;
    Called("End");
  }
  void OnColumnClick(IQVLTreeView*, int column) override {
    Called("ColumnClick " + std::to_string(column));
  }
  void OnItemExpanded(IQVLTreeView*, ItemHandle item) override { CalledAbout("Expanded", item); }

 protected:
  static constexpr int kControlId = 7;

  // Every callback comes here. The result is the client's answer.
  virtual bool Called(const std::string& callback) = 0;
  // The files of a drag or a menu; none by default.
  virtual void NameFiles(FileNameList*) {}

 private:
  static constexpr std::size_t kMostItems = 24;
  static constexpr POINT kBelowItems = {100, 370};

  static std::string Hex(std::uint32_t value) {
    char text[12];
    std::snprintf(text, sizeof text, "%04x", static_cast<unsigned>(value));
    return text;
  }

  void AddBranch(ItemHandle item, ItemHandleList& items) const {
    for (; item > 0; item = view->GetNextSiblingItem(item)) {
      items.push_back(item);
      AddBranch(view->GetFirstChildItem(item), items);
    }
  }

  // Mostly small, sometimes the greatest and the least.
  int AnyNumber() {
    const int kind = Below(256);
    if (kind == 255) return INT_MAX;
    if (kind == 254) return INT_MIN;
    return kind < 250 ? kind - 5 : -(kind << 16);
  }

  bool CalledAbout(const std::string& callback, ItemHandle item) {
    const std::string text = callback + " " + Name(item);
    const ItemHandle outer = std::exchange(subject, item == 0 && !IsList() ? -1 : item);
    const bool answer = Called(text);
    subject = outer;
    return answer;
  }

  const Choices choose;
  ItemHandle subject = -1;  // the item of the current callback
  ItemHandleList inserted;  // deleted or not
  std::basic_string<WCHAR> tip;
};
