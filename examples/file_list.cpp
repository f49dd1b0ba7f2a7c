// The files of a folder with the shell's icons. They can be dragged out, and a right click opens
// the shell's menu. Usage: file_list [folder]
#include "frame.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;

class Client final : public qvl::Client {
 public:
  void OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item, std::uint32_t) override {
    const bool byKey = x == -1 && y == -1;
    const POINT place = byKey ? qvl::MenuPoint(*view) : POINT{x, y};
    if (byKey || item != -1) view->ShowContextMenu(place.x, place.y);
  }

  bool OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override {
    return AddNames(*view, *items, *files);
  }

  // All files must exist and be in one folder. Here they are in one folder anyway.
  bool OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override {
    return AddNames(*view, *items, *files) && !qvl::FirstMissingFile(*files);
  }

  void Fill(IQVLTreeView& view, const fs::path& folder) {
    const int folderIcon = qvl::FolderIcon();
    view.SetBkColor(GetSysColor(COLOR_WINDOW));
    view.UseSystemImageList();
    const qvl::DrawingPause pause(view);
    QVLTreeViewItem record;
    std::error_code error;  // a folder that cannot be read stays empty
    for (const auto& entry : fs::directory_iterator(folder, error)) {
      record.SetItemName(entry.path().filename().c_str());
      record.SetFileName(entry.path().c_str());
      record.SetClientPtr(std::ssize(paths));
      const ItemHandle row = view.InsertItem(&record, -1);
      if (entry.is_directory(error) && folderIcon != -1) qvl::ShowIcon(view, row, folderIcon);
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

  std::vector<fs::path> paths;  // a row's client value is an index into it
};

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  std::error_code error;
  const fs::path folder = fs::canonical(count > 1 ? arguments[1] : L".", error);
  LocalFree(arguments);
  if (error || !fs::is_directory(folder, error)) {
    MessageBoxW(nullptr, L"There is no such folder.", L"file_list", MB_OK);
    return 1;
  }

  Frame frame(folder.filename().c_str(), 300, 240);
  Client client;
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  if (!frame.Show(*view, QVLS_LISTVIEW | QVLS_NOCOLUMNHEADER)) return 1;
  client.Fill(*view, folder);

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
