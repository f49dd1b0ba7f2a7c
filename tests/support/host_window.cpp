#include "support/host_window.h"

void PumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void HostTest::SetUp() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = TEXT("QVLTestHost");
  static const ATOM registered = RegisterClassW(&windowClass);
  ASSERT_NE(registered, 0);
  host = CreateWindowExW(0, windowClass.lpszClassName, TEXT("host"), WS_POPUP | WS_CLIPCHILDREN, 50,
                         50, kWidth, kHeight, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(host, nullptr);
  // An active window without a window manager costs two seconds when it goes.
  ShowWindow(host, SW_SHOWNOACTIVATE);
  view = GetIQVLTreeView();
  ASSERT_NE(view, nullptr);
  client.view = view;
  PumpMessages();
}

void HostTest::TearDown() {
  ReleaseView();
  if (host && IsWindow(host)) DestroyWindow(host);
  PumpMessages();
}

std::string Short(const Lines& lines) {
  const std::string report = "Changed ";
  std::string text;
  for (const std::string& line : lines) {
    const bool bracket = line == "Begin" || line == "End";
    text += text.empty() ? "" : " ";
    text += bracket ? line.substr(0, 1) : line.substr(line.starts_with(report) ? report.size() : 0);
  }
  return text;
}

HWND HostTest::CreateView(std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  view->SetClient(&client);
  return view->Create(host, kControlId, 0, 0, kWidth, kHeight, style, styleExt);
}

void HostTest::OpenView(std::uint32_t style, QVLTreeViewStyleExt* styleExt, int id) {
  if (!view) view = client.view = GetIQVLTreeView();
  view->SetClient(&client);
  control = view->Create(host, id, 0, 0, kWidth, kHeight, style, styleExt);
  ASSERT_NE(control, nullptr);
  parent = GetParent(control);
  client.Take();
}

ItemHandle HostTest::Insert(const WCHAR* name, ItemHandle parent) {
  QVLTreeViewItem item;
  item.SetItemName(name);
  const ItemHandle handle = view->InsertItem(&item, parent);
  const std::basic_string<WCHAR> label = name;
  client.labels[handle].assign(label.begin(), label.end());
  return handle;
}

void HostTest::ReleaseView() {
  ReleaseIQVLTreeView(view);
  view = nullptr;
}

bool HostTest::IsList() const {
  WCHAR name[20] = {};
  GetClassNameW(control, name, 20);
  return name == std::basic_string<WCHAR>(WC_LISTVIEWW);
}

ItemHandle HostTest::Item(char name) const {
  for (const auto& [item, label] : client.labels) {
    if (label == std::string(1, name)) return item;
  }
  return 0;
}

std::string HostTest::Selected() const {
  std::string names;
  const int count = view->GetSelectedCount();
  for (int place = 0; place < count; ++place) names += client.Name(view->GetSelectedItem(place));
  return names;
}

std::basic_string<WCHAR> HostTest::TextOf(ItemHandle item, int column) const {
  constexpr int kSize = 100;
  WCHAR text[kSize] = {};
  LVITEMW row = {};
  row.iSubItem = column;
  row.pszText = text;
  row.cchTextMax = kSize;
  TVITEMW record = {};
  record.mask = TVIF_TEXT;
  record.hItem = Native(item);
  record.pszText = text;
  record.cchTextMax = kSize;
  IsList() ? AskRecord(LVM_GETITEMTEXTW, item, &row) : AskRecord(TVM_GETITEMW, 0, &record);
  return text;
}

// The two controls have the same states, and the question differs in its number alone.
UINT HostTest::StateOf(ItemHandle item, UINT mask) const {
  const UINT message = IsList() ? LVM_GETITEMSTATE : TVM_GETITEMSTATE;
  return static_cast<UINT>(Ask(message, item, mask)) & mask;
}

void HostTest::SetState(ItemHandle item, UINT state, UINT mask) const {
  LVITEMW row = {};
  row.state = state;
  row.stateMask = mask;
  TVITEMW record = {};
  record.mask = TVIF_STATE;
  record.hItem = Native(item);
  record.state = state;
  record.stateMask = mask;
  IsList() ? AskRecord(LVM_SETITEMSTATE, item, &row) : AskRecord(TVM_SETITEMW, 0, &record);
}

RECT HostTest::ClientRect() const {
  RECT rect = {};
  GetClientRect(control, &rect);
  return rect;
}

RECT HostTest::ItemRect(ItemHandle item, bool labelOnly) const {
  union {
    ItemHandle asked;
    RECT rect;
  } record = {item};
  if (IsList()) record.rect = {labelOnly ? LVIR_LABEL : LVIR_BOUNDS, 0, 0, 0};
  EXPECT_TRUE(IsList() ? AskRecord(LVM_GETITEMRECT, item, &record)
                       : AskRecord(TVM_GETITEMRECT, labelOnly, &record))
      << client.Name(item) << " is not shown";
  return record.rect;
}

POINT HostTest::LabelPoint(ItemHandle item) const {
  const RECT label = ItemRect(item);
  return {(label.left + label.right) / 2, (label.top + label.bottom) / 2};
}

POINT HostTest::OffPoint() const {
  const RECT area = ClientRect();
  return {area.right / 2, area.bottom - 2};
}

POINT HostTest::ToScreen(POINT point) const {
  ClientToScreen(control, &point);
  return point;
}

void HostTest::RequestMenu(POINT point) const {
  const POINT screen = ToScreen(point);
  Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(screen.x, screen.y));
}

LRESULT HostTest::Notify(NMHDR& record, UINT code, INT_PTR id) const {
  record = {control, static_cast<UINT_PTR>(id), code};
  return SendMessageW(parent, WM_NOTIFY, record.idFrom, reinterpret_cast<LPARAM>(&record));
}

LRESULT HostTest::NotifyOf(ItemHandle item, UINT code, INT_PTR id) const {
  NMTREEVIEWW branch = {};
  branch.itemNew.hItem = Native(item);
  NMTVGETINFOTIPW tip = {};
  tip.hItem = Native(item);
  NMLISTVIEW row = {};
  row.iItem = static_cast<int>(item);
  row.iSubItem = 3;
  NMLVGETINFOTIPW rowTip = {};
  rowTip.iItem = static_cast<int>(item);
  NMHDR* record = IsList() ? &row.hdr : &branch.hdr;
  if (code == TVN_GETINFOTIPW) record = &tip.hdr;
  if (code == LVN_GETINFOTIPW) record = &rowTip.hdr;
  return Notify(*record, code, id);
}
