#include "directory_watch.h"

#include "paths.h"

namespace demo {
namespace {

constexpr DWORD kPause = 150;     // milliseconds without a change after which a reading begins
constexpr DWORD kLongest = 1500;  // milliseconds of changes after which it begins anyway
constexpr DWORD kChanges = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME |
                           FILE_NOTIFY_CHANGE_SIZE | FILE_NOTIFY_CHANGE_LAST_WRITE;

}  // namespace

DirectoryWatch::~DirectoryWatch() {
  if (!thread.joinable()) return;
  SetEvent(stop.get());
  thread.join();
}

void DirectoryWatch::Start(HWND window, UINT message, const std::wstring& directory,
                           const ReadLimits& limits) {
  receiver = window;
  readMessage = message;
  folder = directory;
  readLimits = limits;
  stop.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  wanted.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
  if (stop && wanted) thread = std::thread([this] { Run(); });
}

void DirectoryWatch::ReadSoon() { SetEvent(wanted.get()); }

void DirectoryWatch::Run() {
  const HANDLE change = FindFirstChangeNotificationW(LongPath(folder).c_str(), TRUE, kChanges);
  const DWORD count = change == INVALID_HANDLE_VALUE ? 2 : 3;
  const HANDLE events[] = {stop.get(), wanted.get(), change};
  while (WaitForMultipleObjects(count, events, FALSE, INFINITE) != WAIT_OBJECT_0) {
    if (WaitForPause(change)) ReadAndPost();
  }
  if (change != INVALID_HANDLE_VALUE) FindCloseChangeNotification(change);
}

// False if the thread is to end.
bool DirectoryWatch::WaitForPause(HANDLE change) {
  const ULONGLONG start = GetTickCount64();
  const bool follows = change != INVALID_HANDLE_VALUE && FindNextChangeNotification(change);
  const HANDLE events[] = {stop.get(), change};
  DWORD result = WAIT_OBJECT_0 + 1;
  while (result == WAIT_OBJECT_0 + 1 && GetTickCount64() - start < kLongest) {
    result = WaitForMultipleObjects(follows ? 2 : 1, events, FALSE, kPause);
    if (result == WAIT_OBJECT_0 + 1) FindNextChangeNotification(change);
  }
  return result != WAIT_OBJECT_0;
}

void DirectoryWatch::ReadAndPost() {
  auto model = std::make_unique<DirectoryModel>();
  const ReadProgress progress = [this](std::size_t) { return !IsStopping(); };
  if (!ReadDirectory(folder, readLimits, progress, *model).empty()) return;
  if (PostMessageW(receiver, readMessage, 0, reinterpret_cast<LPARAM>(model.get()))) {
    (void)model.release();  // the window owns it
  }
}

}  // namespace demo
