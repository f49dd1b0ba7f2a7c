#include "outline.h"

#include <cstdio>
#include <memory>

#include "demo_client.h"
#include "options.h"
#include "paths.h"
#include "text.h"
#include "view_filler.h"

namespace demo {
namespace {

struct DestroyHost {
  void operator()(HWND window) const { DestroyWindow(window); }
};
using HostWindow = std::unique_ptr<std::remove_pointer_t<HWND>, DestroyHost>;

// A view needs a parent. This one is never shown.
HostWindow MakeHiddenWindow() {
  const wchar_t* name = L"QVLDemoHidden";
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = name;
  RegisterClassW(&windowClass);
  return HostWindow(CreateWindowExW(0, name, name, WS_OVERLAPPEDWINDOW, 0, 0, 600, 800, nullptr,
                                    nullptr, nullptr, nullptr));
}

class OutlineWriter {
 public:
  OutlineWriter(IQVLTreeView& writtenView, const DirectoryModel& shownModel)
      : view(writtenView), model(shownModel) {}

  std::string Write() {
    ItemHandleList items;
    const std::int64_t count = view.GetItems(&items, false);
    for (const ItemHandle item : qvl::TopLevelItems(view)) WriteBranch(item, 0);
    text += std::to_string(count) + " items, " + std::to_string(written) + " shown above, " +
            std::to_string(checked) + " checked\n";
    return text;
  }

 private:
  void WriteBranch(ItemHandle item, std::size_t depth) {
    WriteItem(item, depth);
    for (const ItemHandle child : qvl::Children(view, item)) WriteBranch(child, depth + 1);
  }

  void WriteItem(ItemHandle item, std::size_t depth) {
    const bool isChecked = view.IsItemChecked(item);
    const auto entry = EntryOf(view, item);
    text += std::string(2 * depth, ' ') + (isChecked ? "[x] " : "[ ] ");
    text += entry ? Utf8(model.LabelOf(*entry)) : "?";
    text += entry && model.At(*entry).directory ? "/\n" : "\n";
    ++written;
    checked += isChecked ? 1 : 0;
  }

  IQVLTreeView& view;
  const DirectoryModel& model;
  std::string text;
  std::size_t written = 0;
  std::size_t checked = 0;
};

}  // namespace

bool OpenDirectory(const Options& options, DirectoryModel& model, const ReadProgress& progress) {
  ReadLimits limits;
  limits.skip = options.skip;
  const std::string failure = ReadDirectory(FullPath(options.directory), limits, progress, model);
  if (failure.empty()) {
    CheckFirstFiles(model, 3);
    return true;
  }
  std::fprintf(stderr, "demo: %s %s\n", Utf8(options.directory).c_str(), failure.c_str());
  return false;
}

bool OpenLog(const Options& options, CallLog& log) {
  if (options.logFile.empty() || log.WriteTo(options.logFile)) return true;
  std::fprintf(stderr, "demo: the log file cannot be written\n");
  return false;
}

std::string Outline(IQVLTreeView& view, const DirectoryModel& model) {
  return OutlineWriter(view, model).Write();
}

int RunOutline(const Options& options) {
  DirectoryModel model;
  CallLog log;
  if (!OpenDirectory(options, model, {}) || !OpenLog(options, log)) return 2;
  DemoClient client(model, log, nullptr);
  const HostWindow host = MakeHiddenWindow();
  const qvl::ViewOwner view = qvl::MakeView();
  if (!host || !view) return 1;
  view->SetClient(&client);
  const std::uint32_t style = options.list ? kListStyle : kTreeStyle;
  if (!view->Create(host.get(), 1, 0, 0, 600, 800, style, nullptr)) {
    std::fprintf(stderr, "demo: the view cannot be made\n");
    return 1;
  }
  ViewFiller filler(*view, model);
  filler.UseShellIcons();
  filler.Fill({});
  std::fputs(Outline(*view, model).c_str(), stdout);
  return 0;
}

}  // namespace demo
