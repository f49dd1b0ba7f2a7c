// Follows a directory on disk.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <thread>

#include "directory_model.h"
#include "directory_reader.h"

namespace demo {

// Reads the directory on a thread of its own after each change below it, once the changes pause.
class DirectoryWatch {
 public:
  DirectoryWatch() = default;
  // Ends the thread.
  ~DirectoryWatch();
  DirectoryWatch(const DirectoryWatch&) = delete;
  DirectoryWatch& operator=(const DirectoryWatch&) = delete;

  // Posts `message` to `window` after each reading; lParam is a DirectoryModel that the receiver
  // owns.
  void Start(HWND window, UINT message, const std::wstring& directory, const ReadLimits& limits);

  // Reads the directory soon, whether or not it changes.
  void ReadSoon();

 private:
  struct CloseHandleOf {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
  };
  using Event = std::unique_ptr<void, CloseHandleOf>;

  void Run();
  bool WaitForPause(HANDLE change);
  void ReadAndPost();
  bool IsStopping() const { return WaitForSingleObject(stop.get(), 0) == WAIT_OBJECT_0; }

  HWND receiver = nullptr;
  UINT readMessage = 0;
  std::wstring folder;
  ReadLimits readLimits;
  Event stop;
  Event wanted;
  std::thread thread;
};

}  // namespace demo
