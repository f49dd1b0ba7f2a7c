#include "random/random_host.h"

#include <windows.h>

#include <commctrl.h>

#include <climits>
#include <cstdio>
#include <utility>

namespace {

constexpr std::size_t kMostItems = 24;
constexpr POINT kBelowItems = {100, 370};

std::string Hex(std::uint32_t value) {
  char text[12];
  std::snprintf(text, sizeof text, "%04x", static_cast<unsigned>(value));
  return text;
}

}  // namespace

HWND MakeHostWindow() {
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

void HandleQueuedMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

RandomHost::RandomHost(HWND window, bool asList, Choices choices)
    : view(GetIQVLTreeView()), host(window), list(asList), choose(std::move(choices)) {
  view->SetClient(this);
}

RandomHost::~RandomHost() {
  if (view) view->SetClient(nullptr);
  Release();
}

// The pointer goes first, so that a callback meanwhile does not use the view.
void RandomHost::Release() { ReleaseIQVLTreeView(std::exchange(view, nullptr)); }

bool RandomHost::Create() {
  subject = -1;
  QVLTreeViewStyleExt ext;
  std::uint32_t style = QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT | QVLS_SHOWSELALWAYS;
  if (list) style |= QVLS_LISTVIEW;
  if (OneIn(2)) style |= QVLS_CHECKBOXES;
  if (OneIn(4)) style |= QVLS_SINGLESEL;
  if (editable) style |= QVLS_EDITLABELS;
  if (editable) ext.SetStyle(LVS_EDITLABELS);
  if (outOfRange) style = static_cast<std::uint32_t>(Below(256) | Below(256) << 8);
  const HWND window = outOfRange && OneIn(50) ? nullptr : host;
  const HWND control = view->Create(window, kControlId, 0, 0, 260, 380, style, &ext);
  for (int i = 0; i < 6 && control && Control() == control; ++i) Insert();
  return control && Control() == control;
}

ItemHandle RandomHost::Insert() {
  if (!outOfRange && Items().size() >= kMostItems) return -1;
  QVLTreeViewItem record;
  Fill(record);
  const ItemHandle item = view->InsertItem(&record, OneIn(2) ? -1 : Item());
  inserted.push_back(item);
  return item;
}

void RandomHost::Fill(QVLTreeViewItem& record) {
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

LRESULT RandomHost::Send(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool toList = IsList();
  listMessages += toList;
  const LRESULT result = SendMessageW(Control(), message, wParam, lParam);
  listMessages -= toList;
  return result;
}

ItemHandleList RandomHost::Items() const {
  ItemHandleList items;
  if (IsList()) {
    view->GetItems(&items, true);
  } else if (Control()) {
    AddBranch(SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_ROOT, 0), items);
  }
  return items;
}

void RandomHost::AddBranch(ItemHandle item, ItemHandleList& items) const {
  for (; item > 0; item = view->GetNextSiblingItem(item)) {
    items.push_back(item);
    AddBranch(view->GetFirstChildItem(item), items);
  }
}

bool RandomHost::IsShown(ItemHandle item) const {
  if (IsList()) return true;
  for (item = view->GetParentItem(item); item > 0; item = view->GetParentItem(item)) {
    if (!view->IsItemExpanded(item)) return false;
  }
  return true;
}

std::string RandomHost::Name(ItemHandle item) const {
  if (!view || item == -1) return "-1";
  if (item == 0 && !IsList()) return "none";
  return (IsList() ? std::to_string(item) + "/n" : "n") +
         std::to_string(view->GetItemClientPtr(item));
}

std::string RandomHost::State() const {
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

ItemHandle RandomHost::Item() {
  if (subject != -1 && OneIn(2)) return subject;
  if (outOfRange && OneIn(8)) return static_cast<ItemHandle>(AnyNumber()) << (OneIn(2) ? 32 : 0);
  const ItemHandleList items = outOfRange ? inserted : Items();
  if (items.empty() || OneIn(20)) return -1;
  return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
}

int RandomHost::Number(int first, int last) {
  return outOfRange && OneIn(2) ? AnyNumber() : first + Below(last - first + 1);
}

// Mostly small, sometimes the greatest and the least.
int RandomHost::AnyNumber() {
  const int kind = Below(256);
  if (kind == 255) return INT_MAX;
  if (kind == 254) return INT_MIN;
  return kind < 250 ? kind - 5 : -(kind << 16);
}

std::basic_string<WCHAR> RandomHost::Text() {
  if (outOfRange && OneIn(20)) return std::basic_string<WCHAR>(5000, static_cast<WCHAR>(0xD800));
  const std::string text = "C:\\item " + std::to_string(inserted.size()) + (OneIn(2) ? ".txt" : "");
  return {text.begin(), text.end()};
}

// The real control may still return the former rectangle of an item in a collapsed branch.
POINT RandomHost::Point(ItemHandle item) {
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

bool RandomHost::CalledAbout(const std::string& callback, ItemHandle item) {
  const std::string text = callback + " " + Name(item);
  const ItemHandle outer = std::exchange(subject, item == 0 && !IsList() ? -1 : item);
  const bool answer = Called(text);
  subject = outer;
  return answer;
}

void RandomHost::OnContextMenu(IQVLTreeView*, int x, int y, ItemHandle item,
                               std::uint32_t hitFlags) {
  const bool byKey = x == -1 && y == -1;
  CalledAbout((byKey ? "ContextMenu by key " : "ContextMenu ") + Hex(hitFlags), item);
}

bool RandomHost::OnGetInfoTip(IQVLTreeView*, ItemHandle item, WCHAR** text, int* length,
                              std::uint32_t) {
  tip = Text();
  *text = tip.data();
  *length = static_cast<int>(tip.size());
  return CalledAbout("InfoTip", item);
}

bool RandomHost::OnBeginDrag(IQVLTreeView*, ItemHandleList* items, FileNameList* files) {
  NameFiles(files);
  return Called("BeginDrag of " + std::to_string(items->size()));
}

bool RandomHost::OnCreateColumns(IQVLTreeView*, HWND, RECT*) { return Called("CreateColumns"); }

bool RandomHost::OnShellContextMenu(IQVLTreeView*, ItemHandleList* items, FileNameList* files) {
  NameFiles(files);
  return Called("ShellContextMenu of " + std::to_string(items->size()));
}

// Every edit may begin.
bool RandomHost::OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t code) {
  const bool begins = code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
  return Called(begins ? "LabelEdit begins" : "LabelEdit ends") && !begins;
}

void RandomHost::OnBeginSelectionChange(IQVLTreeView*) {
  ++openBrackets;
  Called("Begin");
}

void RandomHost::OnItemSelectionChanged(IQVLTreeView*, ItemHandle item) {
  CalledAbout("Changed", item);
}

void RandomHost::OnEndSelectionChange(IQVLTreeView*) {
  --openBrackets;
  Called("End");
}

void RandomHost::OnColumnClick(IQVLTreeView*, int column) {
  Called("ColumnClick " + std::to_string(column));
}

void RandomHost::OnItemExpanded(IQVLTreeView*, ItemHandle item) { CalledAbout("Expanded", item); }
