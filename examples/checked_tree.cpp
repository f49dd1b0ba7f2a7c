// A tree of named items with check boxes. The title shows how many are checked.
#include <qvl_host.h>

#include <string>

namespace {

qvl::Client client;  // no callback is needed here

ItemHandle Add(IQVLTreeView& view, const wchar_t* name, ItemHandle parent) {
  QVLTreeViewItem item;
  item.SetItemName(name);
  return view.InsertItem(&item, parent);
}

void Fill(IQVLTreeView& view) {
  const qvl::DrawingPause pause(view);
  for (const wchar_t* season : {L"Spring", L"Summer", L"Autumn", L"Winter"}) {
    const ItemHandle branch = Add(view, season, -1);
    for (const wchar_t* task : {L"Windows", L"Garden", L"Heating"}) Add(view, task, branch);
  }
  view.ExpandAll();
  view.EnsureVisible(-1);
}

// A tree makes no callback when a box is clicked, so the title is updated after each message.
void UpdateTitle(HWND window, IQVLTreeView& view) {
  static std::wstring shown;
  const std::wstring title = std::to_wstring(view.GetCheckedCount()) + L" checked";
  if (title != shown) SetWindowTextW(window, title.c_str());
  shown = title;
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = WindowProc;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = L"CheckedTree";
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  RegisterClassW(&windowClass);
  const HWND window = CreateWindowExW(0, L"CheckedTree", L"", WS_OVERLAPPEDWINDOW, 100, 100, 300,
                                      400, nullptr, nullptr, instance, nullptr);

  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  RECT area{};
  GetClientRect(window, &area);
  if (!view->Create(window, 1, 0, 0, area.right, area.bottom,
                    QVLS_CHECKBOXES | QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT,
                    nullptr)) {
    return 1;
  }
  Fill(*view);
  ShowWindow(window, show);
  SetFocus(view->GetControlWindow());

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    UpdateTitle(window, *view);
  }
  return 0;
}
