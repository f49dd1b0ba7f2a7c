#include "outline_run.h"

#include <cstdio>
#include <memory>

#include "call_log.h"
#include "demo_client.h"
#include "options.h"
#include "platform.h"
#include "text.h"
#include "view_filler.h"

namespace demo {
namespace {

struct ReleaseView {
  void operator()(IQVLTreeView* view) const { ReleaseIQVLTreeView(view); }
};

struct DestroyHost {
  void operator()(HWND window) const { DestroyWindow(window); }
};
using HostWindow = std::unique_ptr<std::remove_pointer_t<HWND>, DestroyHost>;

// A window that is never shown; a view needs a parent.
HostWindow MakeHiddenWindow() {
  const WCHAR* name = TEXT("QVLDemoHidden");
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = name;
  RegisterClassW(&windowClass);
  return HostWindow(CreateWindowExW(0, name, name, WS_OVERLAPPEDWINDOW, 0, 0, 600, 800, nullptr,
                                    nullptr, nullptr, nullptr));
}

class OutlineWriter {
 public:
  OutlineWriter(IQVLTreeView& view, const DirectoryModel& model) : view(view), model(model) {}

  std::string Write() {
    ItemHandleList items;
    const std::int64_t count = view.GetItems(&items, false);
    if (view.GetViewType() == 1) {
      if (count > 0) WriteBranch(items[0], 0);
    } else {
      for (const ItemHandle row : items) WriteItem(row, 0);
    }
    text += std::to_string(count) + " items, " + std::to_string(written) + " shown above, " +
            std::to_string(ticked) + " ticked\n";
    return text;
  }

 private:
  void WriteBranch(ItemHandle item, std::size_t depth) {
    WriteItem(item, depth);
    ItemHandle child = view.GetFirstChildItem(item);
    for (; child != 0; child = view.GetNextSiblingItem(child)) WriteBranch(child, depth + 1);
  }

  void WriteItem(ItemHandle item, std::size_t depth) {
    const bool isTicked = view.IsItemChecked(item);
    const auto entry = EntryOf(view, item);
    text += std::string(2 * depth, ' ') + (isTicked ? "[x] " : "[ ] ");
    text += entry ? Utf8(model.At(*entry).name) : "?";
    text += entry && model.At(*entry).directory ? "/\n" : "\n";
    ++written;
    ticked += isTicked ? 1 : 0;
  }

  IQVLTreeView& view;
  const DirectoryModel& model;
  std::string text;
  std::size_t written = 0;
  std::size_t ticked = 0;
};

}  // namespace

bool ReadDirectory(const Options& options, DirectoryModel& model,
                   const DirectoryModel::Progress& progress) {
  DirectoryModel::Limits limits;
  limits.skip = options.skip;
  if (model.Read(options.directory, limits, progress)) {
    TickFirstFiles(model, 3);
    return true;
  }
  std::fprintf(stderr, "demo: %s %s\n", PlainPath(options.directory).c_str(),
               model.Error().c_str());
  return false;
}

std::string Outline(IQVLTreeView& view, const DirectoryModel& model) {
  return OutlineWriter(view, model).Write();
}

int RunOutline(const Options& options) {
  DirectoryModel model;
  if (!ReadDirectory(options, model, {})) return 2;
  CallLog log;
  if (!options.logFile.empty() && !log.WriteTo(options.logFile)) {
    std::fprintf(stderr, "demo: the log file can't be written\n");
    return 2;
  }
  DemoClient client(model, log, nullptr);
  const HostWindow host = MakeHiddenWindow();
  const std::unique_ptr<IQVLTreeView, ReleaseView> view(GetIQVLTreeView());
  if (!host || !view) return 1;
  view->SetClient(&client);
  const std::uint32_t style = options.list ? LIST_STYLE : TREE_STYLE;
  if (view->Create(host.get(), 1, 0, 0, 600, 800, style, nullptr) == nullptr) {
    std::fprintf(stderr, "demo: the view can't be made\n");
    return 1;
  }
  view->UseSystemImageList();
  FillView(*view, model, {});
  std::fputs(Outline(*view, model).c_str(), stdout);
  return 0;
}

}  // namespace demo
