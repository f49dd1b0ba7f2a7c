// trace first last steps file: plays the stories of these seeds into a file.
#include "trace/trace_story.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

HWND MakeHostWindow() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = TEXT("QVLTraceHost");
  RegisterClassW(&windowClass);
  const HWND host = CreateWindowExW(0, windowClass.lpszClassName, TEXT("trace"), WS_POPUP, 0, 0,
                                    400, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
  ShowWindow(host, SW_SHOWNOACTIVATE);
  return host;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("usage: trace first-seed last-seed steps file\n", stderr);
    return 2;
  }
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  if (!InitCommonControlsEx(&controls) || FAILED(OleInitialize(nullptr))) return 2;
  std::ofstream out(argv[4], std::ios::binary);
  const HWND host = MakeHostWindow();
  for (int seed = std::atoi(argv[1]); seed <= std::atoi(argv[2]); ++seed) {
    out << "seed " << seed << '\n';
    TraceStory(host, static_cast<std::uint32_t>(seed), out).Play(std::atoi(argv[3]));
  }
  DestroyWindow(host);
  OleUninitialize();
  return out.flush() ? 0 : 1;
}
