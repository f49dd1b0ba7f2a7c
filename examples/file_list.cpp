// The files of a folder with the shell's icons. They can be dragged out, and a right click opens
// the shell's menu. Usage: file_list [folder]
#include <qvl_host.h>

#include <ole2.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class Client final : public qvl::Client {
 public:
  explicit Client(fs::path shown) : folder(std::move(shown)) {}

  void OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item, std::uint32_t) override {
    const bool byKey = x == -1 && y == -1;
    const POINT place = byKey ? qvl::MenuPoint(*view) : POINT{x, y};
    if (byKey || item != -1) view->ShowContextMenu(place.x, place.y);
  }

  bool OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override {
    return AddNames(*view, *items, *files);
  }

  // All names must be files of one folder that exist.
  bool OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override {
    return AddNames(*view, *items, *files) && !qvl::FirstMissingFile(*files);
  }

  void Fill(IQVLTreeView& view) {
    const int folderIcon = qvl::FolderIcon();
    view.SetBkColor(GetSysColor(COLOR_WINDOW));
    view.UseSystemImageList();
    const qvl::DrawingPause pause(view);
    QVLTreeViewItem record;
    for (const auto& entry : fs::directory_iterator(folder)) {
      record.SetItemName(entry.path().filename().c_str());
      record.SetFileName(entry.path().c_str());
      record.SetClientPtr(std::ssize(paths));
      const ItemHandle row = view.InsertItem(&record, -1);
      if (entry.is_directory() && folderIcon != -1) qvl::ShowIcon(view, row, folderIcon);
      paths.push_back(entry.path());
    }
  }

 private:
  bool AddNames(IQVLTreeView& view, const ItemHandleList& items, FileNameList& files) const {
    for (const ItemHandle item : items) {
      files.push_back(paths[static_cast<std::size_t>(view.GetItemClientPtr(item))].wstring());
    }
    return true;
  }

  fs::path folder;
  std::vector<fs::path> paths;  // a row's client value is an index into it
};

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int) try {
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  OleInitialize(nullptr);
  const fs::path folder = fs::absolute(*commandLine ? fs::path(commandLine) : fs::path("."));
  const HWND window =
      CreateWindowExW(0, L"STATIC", folder.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 340,
                      300, nullptr, nullptr, instance, nullptr);
  Client client(folder);
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  RECT area{};
  GetClientRect(window, &area);
  if (!view->Create(window, 1, 0, 0, area.right, area.bottom, QVLS_LISTVIEW | QVLS_NOCOLUMNHEADER,
                    nullptr)) {
    return 1;
  }
  client.Fill(*view);

  MSG message;
  while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
} catch (const fs::filesystem_error& error) {
  MessageBoxA(nullptr, error.what(), "file_list", MB_OK);
  return 1;
}
