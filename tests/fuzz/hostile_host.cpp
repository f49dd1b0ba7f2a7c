#include "fuzz/hostile_host.h"

#include <windows.h>

#include <commctrl.h>

#include <climits>
#include <iterator>
#include <utility>

namespace {

constexpr int CONTROL_ID = 5;
constexpr int DEEPEST = 3;
constexpr int MOST_ACTIONS = 300;
constexpr std::size_t MOST_SEEN = 16;

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

HWND MakeHost() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = TEXT("QVLHostile");
  RegisterClassW(&windowClass);
  return CreateWindowExW(0, TEXT("QVLHostile"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 300, 300,
                         nullptr, nullptr, nullptr, nullptr);
}

}  // namespace

std::uint8_t ByteSource::Byte() {
  if (left == 0) return 0;
  --left;
  return *next++;
}

int ByteSource::Number() {
  const int kind = Byte();
  if (kind == 255) return INT_MAX;
  if (kind == 254) return INT_MIN;
  return kind < 250 ? kind - 5 : -(kind << 16);
}

std::basic_string<WCHAR> ByteSource::Text() {
  const int kind = Byte();
  if (kind > 250) return std::basic_string<WCHAR>(static_cast<std::size_t>(kind) * 20, TEXT('x'));
  std::basic_string<WCHAR> text(TEXT("C:\\a"));
  for (int i = 0; i < kind % 9; ++i) {
    text += static_cast<WCHAR>(Byte() | (Bit() ? 0xD800 : 0));
  }
  return text;
}

HostileHost::HostileHost(const std::uint8_t* data, std::size_t length)
    : bytes(data, length), host(MakeHost()), view(GetIQVLTreeView()) {
  view->SetClient(this);
}

HostileHost::~HostileHost() {
  Release();
  DestroyWindow(host);
  Pump();
}

void HostileHost::Play() {
  Create();
  while (!bytes.Empty() && actions < MOST_ACTIONS) {
    Act();
    Pump();
  }
}

// The pointer goes first: what the control says while it goes must find no view to act on.
void HostileHost::Release() { ReleaseIQVLTreeView(std::exchange(view, nullptr)); }

void HostileHost::Create() {
  QVLTreeViewStyleExt ext;
  ext.SetStyle(bytes.Bit() ? 0x0200u : 0u);
  const auto style = static_cast<std::uint32_t>(bytes.Byte() | bytes.Byte() << 8);
  view->Create(bytes.Byte() == 77 ? nullptr : host, CONTROL_ID, 0, 0, 250, 250, style, &ext);
}

ItemHandle HostileHost::Handle() {
  const int kind = bytes.Byte();
  if (kind < 200 && !seen.empty()) return seen[static_cast<std::size_t>(kind) % seen.size()];
  if (kind < 230) return kind - 215;
  return static_cast<ItemHandle>(bytes.Number()) << (bytes.Bit() ? 32 : 0);
}

void HostileHost::Fill(QVLTreeViewItem& record) {
  record.SetItemName(bytes.Text().c_str());
  record.SetFileName(bytes.Text().c_str());
  const int flags = bytes.Byte();
  record.SetSelected((flags & 1) != 0);
  record.SetChecked((flags & 2) != 0);
  record.SetCut((flags & 4) != 0);
  record.SetBold((flags & 8) != 0);
  record.SetType(flags >> 6);
  if ((flags & 16) != 0) record.SetStateIndex(bytes.Number());
  if ((flags & 32) != 0) record.SetSubItem(bytes.Number());
  record.SetIndentOffset(bytes.Number());
}

void HostileHost::Insert(ItemHandle parent) {
  QVLTreeViewItem record;
  Fill(record);
  const ItemHandle made = view->InsertItem(&record, parent);
  seen.push_back(made);
  if (seen.size() > MOST_SEEN) seen.pop_front();
}

void HostileHost::Act() {
  ++actions;
  if (!view) {
    view = GetIQVLTreeView();
    view->SetClient(this);
    Create();
    return;
  }
  const int action = bytes.Byte();
  if (action < 90) {
    ActOnItem(action % 15, Handle());
  } else if (action < 190) {
    ActOnView(action % 30);
  } else {
    Gesture(action % 6);
  }
}

void HostileHost::ActOnItem(int action, ItemHandle item) {
  QVLTreeViewItem record;
  switch (action) {
    case 0:
      Fill(record);
      view->UpdateItem(&record, item);
      break;
    case 1:
      view->DeleteItem(item);
      break;
    case 2:
      seen.push_back(view->GetParentItem(item));
      break;
    case 3:
      seen.push_back(view->GetFirstChildItem(item));
      break;
    case 4:
      seen.push_back(view->GetNextSiblingItem(item));
      break;
    case 5:
      view->ExpandItem(item, bytes.Bit());
      break;
    case 6:
      view->EnsureVisible(item);
      break;
    case 7:
      view->SetItemSelected(item, bytes.Bit());
      break;
    case 8:
      view->SetItemChecked(item, bytes.Bit());
      break;
    case 9:
      view->GetItemClientPtr(item);
      view->IsItemExpanded(item);
      break;
    case 10:
      view->IsItemSelected(item);
      view->IsItemChecked(item);
      break;
    default:
      Insert(item);
      break;
  }
}

void HostileHost::ActOnView(int action) {
  ItemHandleList items;
  int x = 0;
  int y = 0;
  switch (action) {
    case 0:
      return view->Destroy();
    case 1:
      return Create();
    case 2:
      return Release();
    case 3:
      return view->SetClient(bytes.Bit() ? this : nullptr);
    case 4:
      view->UseSystemImageList();
      return;
    case 5:
      view->SetBkColor(static_cast<COLORREF>(bytes.Number()));
      return;
    case 6:
      return view->SetMultiSelect(bytes.Bit());
    case 7:
      view->Move(bytes.Number(), bytes.Number(), bytes.Number(), bytes.Number());
      return;
    case 8:
      return view->DeleteAllItems();
    case 9:
      return bytes.Bit() ? view->Hide() : view->Show();
    case 10:
      view->GetScrollPosition(&x, &y);
      return view->SetScrollPosition(bytes.Number(), bytes.Number());
    case 11:
      view->SetToolTipWidth(bytes.Number());
      return view->SetToolTipDelay(bytes.Number());
    case 12:
      view->GetItems(&items, bytes.Bit());
      return;
    case 13:
      return view->ExpandAll();
    case 14:
      return view->CollapseAll();
    case 15:
      view->GetSelectedItem(bytes.Number());
      view->GetCheckedItem(bytes.Number());
      return;
    case 16:
    case 17:
      return view->SelectAll();
    case 18:
      return view->ClearSelection();
    case 19:
    case 20:
      return view->InvertSelection();
    case 21:
      return view->CheckAll();
    case 22:
      return view->UncheckAll();
    case 23:
      view->ShowContextMenu(bytes.Number(), bytes.Number());
      return;
    case 24:
      SendMessageW(Control(), WM_SETREDRAW, bytes.Bit(), 0);
      return;
    default:
      return Insert(-1);
  }
}

void HostileHost::Gesture(int gesture) {
  const HWND control = Control();
  if (!control) return;
  const LPARAM point = MAKELPARAM(bytes.Number(), bytes.Number());
  const WPARAM keys = bytes.Byte() & (MK_SHIFT | MK_CONTROL);
  BYTE keyboard[256] = {};
  POINT screen = {bytes.Number(), bytes.Number()};
  std::uint32_t flags = 0;
  switch (gesture) {
    case 0:
    case 1:
      PostMessageW(control, WM_LBUTTONUP, 0, point);
      SendMessageW(control, WM_LBUTTONDOWN, keys | MK_LBUTTON, point);
      break;
    case 2:
      keyboard[VK_SHIFT] = bytes.Bit() ? 0x80 : 0;
      SetKeyboardState(keyboard);
      SendMessageW(control, WM_KEYDOWN, bytes.Byte(), 1);
      break;
    case 3:
      SendMessageW(GetParent(control), WM_CONTEXTMENU, 0, point);
      break;
    case 4:
      view->HitTest(&screen, bytes.Bit(), bytes.Bit() ? &flags : nullptr);
      break;
    default: {
      NMTREEVIEWW record = {};
      constexpr UINT CODES[] = {TVN_BEGINDRAGW, TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW,
                                LVN_BEGINDRAG,  LVN_ITEMCHANGED, LVN_COLUMNCLICK};
      record.hdr.hwndFrom = control;
      record.hdr.idFrom = CONTROL_ID;
      record.hdr.code = CODES[bytes.Byte() % std::size(CODES)];
      record.itemNew.hItem = reinterpret_cast<HTREEITEM>(Handle());
      SendMessageW(GetParent(control), WM_NOTIFY, CONTROL_ID, reinterpret_cast<LPARAM>(&record));
    }
  }
}

// Acts while the library waits for the answer, then answers.
bool HostileHost::Called() {
  const int wanted = bytes.Byte();
  if (wanted < 40 && depth < DEEPEST && actions < MOST_ACTIONS && view) {
    ++depth;
    Act();
    --depth;
  }
  return bytes.Bit();
}

bool HostileHost::NameFiles(FileNameList* files) {
  const int count = bytes.Byte() % 4;
  for (int i = 0; i < count; ++i) files->push_back(bytes.Text());
  return Called();
}

void HostileHost::OnContextMenu(IQVLTreeView*, int, int, ItemHandle, std::uint32_t) { Called(); }

bool HostileHost::OnGetInfoTip(IQVLTreeView*, ItemHandle, WCHAR** text, int* length,
                               std::uint32_t) {
  tip = bytes.Text();
  *text = tip.data();
  *length = static_cast<int>(tip.size());
  return Called();
}

bool HostileHost::OnBeginDrag(IQVLTreeView*, ItemHandleList*, FileNameList* files) {
  return NameFiles(files);
}

bool HostileHost::OnCreateColumns(IQVLTreeView*, HWND, RECT*) { return Called(); }

bool HostileHost::OnShellContextMenu(IQVLTreeView*, ItemHandleList*, FileNameList* files) {
  return NameFiles(files);
}

bool HostileHost::OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t) { return Called(); }

void HostileHost::OnBeginSelectionChange(IQVLTreeView*) { Called(); }

void HostileHost::OnItemSelectionChanged(IQVLTreeView*, ItemHandle) { Called(); }

void HostileHost::OnEndSelectionChange(IQVLTreeView*) { Called(); }

void HostileHost::OnColumnClick(IQVLTreeView*, int) { Called(); }

void HostileHost::OnItemExpanded(IQVLTreeView*, ItemHandle) { Called(); }
