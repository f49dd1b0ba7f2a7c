// One view that is a tree or a list. F6 switches; checked items stay checked.
#include <qvl_host.h>

#include <vector>

namespace {

struct Entry {
  const wchar_t* name;
  int parent;  // index of the parent, which comes first; -1 for the top level
  bool checked;
};

std::vector<Entry> entries = {{L"Music", -1, false},  {L"Jazz", 0, true},    {L"Opera", 0, false},
                              {L"Films", -1, false},  {L"Comedy", 3, false}, {L"Crime", 3, true},
                              {L"Thriller", 5, true}, {L"Games", -1, false}};

constexpr std::uint32_t kListStyle = QVLS_LISTVIEW | QVLS_NOCOLUMNHEADER;

qvl::Client client;  // no callback is needed here

// Items carry the index of their entry. A list asks for the indent of the parent row, so both kinds
// of view are filled in the same way.
void Fill(IQVLTreeView& view) {
  const qvl::DrawingPause pause(view);
  std::vector<ItemHandle> items;
  QVLTreeViewItem record;
  for (const Entry& entry : entries) {
    record.SetItemName(entry.name);
    record.SetChecked(entry.checked);
    record.SetClientPtr(std::ssize(items));
    const bool top = entry.parent == -1;
    items.push_back(
        view.InsertItem(&record, top ? -1 : items[static_cast<std::size_t>(entry.parent)]));
  }
  view.ExpandAll();
}

void KeepChecks(IQVLTreeView& view) {
  for (const ItemHandle top : qvl::TopLevelItems(view)) {
    for (const ItemHandle item : qvl::Branch(view, top)) {
      const auto index = static_cast<std::size_t>(view.GetItemClientPtr(item));
      entries[index].checked = view.IsItemChecked(item);
    }
  }
}

bool Show(IQVLTreeView& view, HWND window, bool asList) {
  if (view.GetControlWindow()) KeepChecks(view);
  RECT area{};
  GetClientRect(window, &area);
  const std::uint32_t style = QVLS_CHECKBOXES | QVLS_HASBUTTONS | QVLS_LINESATROOT;
  const bool created = view.Create(window, 1, 0, 0, area.right, area.bottom,
                                   asList ? style | kListStyle : style, nullptr) != nullptr;
  if (!created) return false;
  Fill(view);
  SetFocus(view.GetControlWindow());
  SetWindowTextW(window, asList ? L"List - F6: tree" : L"Tree - F6: list");
  return true;
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                                      300, 260, nullptr, nullptr, instance, nullptr);
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  if (!Show(*view, window, false)) return 1;

  MSG message;
  while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_F6) {
      Show(*view, window, !qvl::IsList(*view));
      continue;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
