// The last error, and the small questions about process and time.
#include <unistd.h>

#include <chrono>
#include <thread>

#include <windows.h>

namespace {

thread_local DWORD lastError = 0;

}  // namespace

DWORD WINAPI GetLastError() { return lastError; }

void WINAPI SetLastError(DWORD error) { lastError = error; }

DWORD WINAPI GetCurrentThreadId() { return static_cast<DWORD>(gettid()); }

DWORD WINAPI GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }

ULONGLONG WINAPI GetTickCount64() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<ULONGLONG>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

DWORD WINAPI GetTickCount() { return static_cast<DWORD>(GetTickCount64()); }

void WINAPI Sleep(DWORD milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int WINAPI lstrlenW(LPCWSTR text) {
  int length = 0;
  while (text && text[length]) {
    ++length;
  }
  return length;
}

DWORD WINAPI GetGuiResources(HANDLE, DWORD) { return 0; }
