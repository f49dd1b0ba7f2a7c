#include "random/random_host.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <iterator>
#include <utility>

namespace {

constexpr std::size_t kMaxItems = 24;

std::string Hex(std::uint32_t value) {
  char text[8];
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
  const HWND window =
      CreateWindowExW(0, windowClass.lpszClassName, TEXT("random host"), WS_POPUP, 0, 0, 400, 400,
                      nullptr, nullptr, windowClass.hInstance, nullptr);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

void HandleMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

RandomHost::RandomHost(HWND hostWindow, bool asList, Choices choices)
    : view(GetIQVLTreeView()), host(hostWindow), list(asList), choose(std::move(choices)) {
  view->SetClient(this);
}

RandomHost::~RandomHost() {
  if (view) view->SetClient(nullptr);
  ReleaseIQVLTreeView(view);
}

void RandomHost::Create() {
  std::uint32_t style = QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT | QVLS_SHOWSELALWAYS;
  if (list) style |= QVLS_LISTVIEW;
  if (OneIn(2)) style |= QVLS_CHECKBOXES;
  if (OneIn(4)) style |= QVLS_SINGLESEL;
  view->Create(host, kControlId, 0, 0, 260, 380, style, nullptr);
  for (int i = 0; i < 6; ++i) Insert();
}

ItemHandle RandomHost::Insert() {
  if (Items().size() >= kMaxItems) return -1;
  QVLTreeViewItem record;
  Fill(record);
  const ItemHandle parent = OneIn(2) ? -1 : Item();
  return view->InsertItem(&record, parent);
}

void RandomHost::Fill(QVLTreeViewItem& record) {
  record.SetClientPtr(++records);
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

ItemHandleList RandomHost::Items() const {
  ItemHandleList items;
  if (!Control()) return items;
  if (IsList()) {
    view->GetItems(&items, true);
  } else {
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

ItemHandle RandomHost::Item() {
  const ItemHandleList items = Items();
  if (items.empty() || OneIn(20)) return -1;
  return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
}

int RandomHost::Number(int first, int last) { return first + Below(last - first + 1); }

std::basic_string<WCHAR> RandomHost::Text() {
  const std::string text = "item " + std::to_string(records) + (OneIn(2) ? ".txt" : "");
  return {text.begin(), text.end()};
}

POINT RandomHost::Point(ItemHandle item) {
  constexpr POINT kBelow = {100, 370};
  // For an item in a collapsed branch the real control may return its former rectangle.
  if (item == -1 || !IsShown(item)) return kBelow;
  RECT rect = {};
  if (IsList()) {
    rect.left = LVIR_LABEL;
  } else {
    *reinterpret_cast<ItemHandle*>(&rect) = item;
  }
  const bool found =
      IsList() ? SendMessageW(Control(), LVM_GETITEMRECT, static_cast<WPARAM>(item),
                              reinterpret_cast<LPARAM>(&rect))
               : SendMessageW(Control(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
  if (!found || rect.top < 0 || rect.bottom > kBelow.y) return kBelow;
  return {rect.left + 4, (rect.top + rect.bottom) / 2};
}

WPARAM RandomHost::Key() {
  constexpr WPARAM kKeys[] = {VK_UP,  VK_DOWN,  VK_LEFT, VK_RIGHT, VK_HOME,
                              VK_END, VK_SHIFT, VK_BACK, VK_DELETE};
  return kKeys[Below(std::size(kKeys))];
}

bool RandomHost::MayExpand(ItemHandle item, bool expand) {
  return item != -1 && (expand || IsShown(item));
}

void RandomHost::OnContextMenu(IQVLTreeView*, int x, int y, ItemHandle item,
                               std::uint32_t hitFlags) {
  const bool byKey = x == -1 && y == -1;
  OnCallback((byKey ? "ContextMenu by key " : "ContextMenu ") + Name(item) + " " + Hex(hitFlags));
}

bool RandomHost::OnGetInfoTip(IQVLTreeView*, ItemHandle item, WCHAR** text, int* length,
                              std::uint32_t) {
  tip = Text();
  *text = tip.data();
  *length = static_cast<int>(tip.size());
  return OnCallback("InfoTip " + Name(item));
}

bool RandomHost::OnBeginDrag(IQVLTreeView*, ItemHandleList* items, FileNameList* files) {
  NameFiles(files);
  return OnCallback("BeginDrag of " + std::to_string(items->size()));
}

bool RandomHost::OnCreateColumns(IQVLTreeView*, HWND, RECT*) { return OnCallback("CreateColumns"); }

bool RandomHost::OnShellContextMenu(IQVLTreeView*, ItemHandleList* items, FileNameList* files) {
  NameFiles(files);
  return OnCallback("ShellContextMenu of " + std::to_string(items->size()));
}

bool RandomHost::OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t code) {
  const bool begins = code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
  return OnCallback(begins ? "LabelEdit begins" : "LabelEdit ends");
}

void RandomHost::OnBeginSelectionChange(IQVLTreeView*) {
  ++openBrackets;
  OnCallback("Begin");
}

void RandomHost::OnItemSelectionChanged(IQVLTreeView*, ItemHandle item) {
  OnCallback("Changed " + Name(item));
}

void RandomHost::OnEndSelectionChange(IQVLTreeView*) {
  --openBrackets;
  OnCallback("End");
}

void RandomHost::OnColumnClick(IQVLTreeView*, int column) {
  OnCallback("ColumnClick " + std::to_string(column));
}

void RandomHost::OnItemExpanded(IQVLTreeView*, ItemHandle item) {
  OnCallback("Expanded " + Name(item));
}
