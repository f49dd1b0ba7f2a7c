#include "trace/trace_view.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

namespace {

constexpr int CONTROL_ID = 7;
constexpr std::size_t MOST_ITEMS = 24;

std::string Hex(std::uint32_t value) {
  constexpr char DIGITS[] = "0123456789abcdef";
  std::string text;
  for (int shift = 12; shift >= 0; shift -= 4) text += DIGITS[(value >> shift) & 0xF];
  return text;
}

std::basic_string<WCHAR> Wide(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace

TraceView::TraceView(std::string viewName, HWND hostWindow, Dice& sharedDice, Write write)
    : view(GetIQVLTreeView()),
      name(std::move(viewName)),
      host(hostWindow),
      dice(sharedDice),
      writeLine(std::move(write)) {
  view->SetClient(this);
}

TraceView::~TraceView() { ReleaseIQVLTreeView(view); }

void TraceView::Create(bool asList) {
  std::uint32_t style = QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT | QVLS_SHOWSELALWAYS;
  if (asList) style |= QVLS_LISTVIEW;
  if (dice.OneIn(2)) style |= QVLS_CHECKBOXES;
  if (dice.OneIn(4)) style |= QVLS_SINGLESEL;
  view->Create(host, CONTROL_ID, 0, 0, 260, 380, style, nullptr);
}

void TraceView::AddBranch(ItemHandle item, ItemHandleList& items) const {
  for (; item > 0; item = view->GetNextSiblingItem(item)) {
    items.push_back(item);
    AddBranch(view->GetFirstChildItem(item), items);
  }
}

ItemHandleList TraceView::Items() const {
  ItemHandleList items;
  if (!Control()) return items;
  if (IsList()) {
    view->GetItems(&items, true);
  } else {
    AddBranch(SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_ROOT, 0), items);
  }
  return items;
}

ItemHandle TraceView::AnyItem() {
  const ItemHandleList items = Items();
  if (items.empty() || dice.OneIn(20)) return -1;
  return items[static_cast<std::size_t>(dice.Below(static_cast<int>(items.size())))];
}

bool TraceView::IsShown(ItemHandle item) const {
  if (IsList()) return true;
  for (item = view->GetParentItem(item); item > 0; item = view->GetParentItem(item)) {
    if (!view->IsItemExpanded(item)) return false;
  }
  return true;
}

void TraceView::Expand(ItemHandle item, bool expand) {
  if (item != -1 && (expand || IsShown(item))) view->ExpandItem(item, expand);
}

std::string TraceView::Name(ItemHandle item) const {
  if (item == -1 || (item == 0 && !IsList())) return item == 0 ? "none" : "-1";
  return (IsList() ? std::to_string(item) + "/n" : "n") +
         std::to_string(view->GetItemClientPtr(item));
}

std::string TraceView::State() const {
  if (!Control()) return "no control";
  std::string state;
  for (const ItemHandle item : Items()) {
    state += " " + Name(item);
    if (view->IsItemSelected(item)) state += "*";
    if (view->IsItemExpanded(item)) state += "-";
    if (!view->IsItemChecked(item)) state += "o";
  }
  if (!IsList()) {
    const ItemHandle caret = SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_CARET, 0);
    state += " caret " + Name(caret);
  }
  return state;
}

void TraceView::WriteStateIfChanged() {
  const std::string state = State();
  if (state == std::exchange(lastState, state)) return;
  writeLine("  " + name + " =" + state);
}

void TraceView::Fill(QVLTreeViewItem& record) {
  record.SetClientPtr(++made);
  record.SetItemName(Wide("item " + std::to_string(made)).c_str());
  record.SetSelected(dice.OneIn(6));
  record.SetChecked(dice.OneIn(4));
  record.SetStateIndex(dice.OneIn(4) ? dice.Below(3) : -1);
  record.SetBold(dice.OneIn(3));
  record.SetCut(dice.OneIn(3));
  record.SetIndentOffset(dice.Below(3) - 1);
  if (dice.OneIn(15)) record.SetSubItem(dice.Below(3) - 1);
}

void TraceView::Insert() {
  if (Items().size() >= MOST_ITEMS) return;
  QVLTreeViewItem record;
  Fill(record);
  view->InsertItem(&record, dice.OneIn(2) ? -1 : AnyItem());
}

// What a host may do in the middle of a call, twice deep at the most.
void TraceView::React() {
  if (!reacts || reacting == 2 || !dice.OneIn(12)) return;
  ++reacting;
  const int reaction = dice.Below(8);
  writeLine("    " + name + " reacts " + std::to_string(reaction));
  switch (reaction) {
    case 0:
      view->SetItemSelected(AnyItem(), dice.OneIn(2));
      break;
    case 1:
      view->ClearSelection();
      break;
    case 2:
      view->SetItemChecked(AnyItem(), dice.OneIn(2));
      break;
    case 3:
      Expand(AnyItem(), dice.OneIn(2));
      break;
    case 4:
      Insert();
      break;
    case 5:
      view->InvertSelection();
      break;
    case 6:
      view->SetMultiSelect(dice.OneIn(2));
      break;
    default:
      view->CheckAll();
      break;
  }
  --reacting;
}

bool TraceView::Heard(IQVLTreeView* from, const std::string& what) {
  writeLine("    " + name + " hears " + what + (from == view ? "" : " from a stranger"));
  const bool answer = dice.OneIn(2);
  React();
  return answer;
}

void TraceView::OnContextMenu(IQVLTreeView* from, int x, int y, ItemHandle item,
                              std::uint32_t hitFlags) {
  const bool byKeyboard = x == -1 && y == -1;
  Heard(from, (byKeyboard ? "ContextMenu by key " : "ContextMenu ") + Name(item) + Hex(hitFlags));
}

bool TraceView::OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** /*text*/, int* /*length*/,
                             std::uint32_t /*hitFlags*/) {
  Heard(from, "InfoTip " + Name(item));
  return false;
}

bool TraceView::OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* /*files*/) {
  return Heard(from, "BeginDrag of " + std::to_string(items->size()));
}

bool TraceView::OnCreateColumns(IQVLTreeView* from, HWND /*listWindow*/, RECT* /*clientRect*/) {
  Heard(from, "CreateColumns");
  return false;
}

bool TraceView::OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items,
                                   FileNameList* /*files*/) {
  return Heard(from, "ShellContextMenu of " + std::to_string(items->size()));
}

bool TraceView::OnLabelEdit(IQVLTreeView* from, NMHDR* /*record*/, std::uint32_t code) {
  const bool begins = code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
  return Heard(from, begins ? "LabelEdit begins" : "LabelEdit ends");
}

void TraceView::OnBeginSelectionChange(IQVLTreeView* from) { Heard(from, "Begin"); }

void TraceView::OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) {
  Heard(from, "Changed " + Name(item));
}

void TraceView::OnEndSelectionChange(IQVLTreeView* from) { Heard(from, "End"); }

void TraceView::OnColumnClick(IQVLTreeView* from, int column) {
  Heard(from, "ColumnClick " + std::to_string(column));
}

void TraceView::OnItemExpanded(IQVLTreeView* from, ItemHandle item) {
  Heard(from, "Expanded " + Name(item));
}
