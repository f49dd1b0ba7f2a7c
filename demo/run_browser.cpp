#include "run_browser.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <cstdio>
#include <memory>

#include "browser_window.h"
#include "call_log.h"
#include "commands.h"
#include "options.h"
#include "outline.h"
#include "progress_window.h"

namespace demo {
namespace {

// Drags and the clipboard need OLE on the thread. The library leaves that to its host.
struct OleScope {
  const HRESULT result = OleInitialize(nullptr);
  ~OleScope() {
    if (SUCCEEDED(result)) OleUninitialize();
  }
};

bool ReadWithProgress(const Options& options, DirectoryModel& model) {
  ProgressWindow progress(nullptr);
  return OpenDirectory(options, model, [&](std::size_t read) {
    progress.Report(L"Reading: ", read, 0);
    return true;
  });
}

void RunMessages(BrowserWindow& window, Commands* commands) {
  MSG message{};
  for (;;) {
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) window.UpdateStatus();
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) return;
    if (commands && commands->HandleSyncKey(message)) continue;
    if (window.TranslateKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

int RunBrowser(const Options& options) {
  const OleScope ole;
  INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_WIN95_CLASSES};
  InitCommonControlsEx(&wanted);
  DirectoryModel model;
  if (!ReadWithProgress(options, model)) return 2;
  CallLog log;
  if (!OpenLog(options, log)) return 2;
  BrowserWindow window(model, log);
  if (!window.Create(options)) {
    std::fprintf(stderr, "demo: the window cannot be made\n");
    return 1;
  }
  std::unique_ptr<Commands> commands;
  if (options.channel) {
    commands = std::make_unique<Commands>(window);
    if (!commands->Open()) return 1;
  }
  window.Show();
  RunMessages(window, commands.get());
  return 0;
}

}  // namespace demo
