// The fuzzer's entry: bytes decide what a host does to a view, and inside which callbacks. The host
// passes valid records and lists; it uses deleted items and ends its view at any time.
#include "random/operations.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>

namespace {

constexpr int kDeepest = 3;
constexpr int kMostOperations = 300;

class InputHost final : public RandomHost {
 public:
  InputHost(HWND window, const std::uint8_t*& next, const std::uint8_t* end)
      : RandomHost(window, false, [&next, end](int limit) {
          int value = 0;
          for (int range = 1; range < limit; range <<= 8) {
            value = value << 8 | (next == end ? 0 : *next++);
          }
          return value % limit;
        }) {
    outOfRange = editable = true;
    Create();
  }

  void RunOne() {
    ++operations;
    const auto place = static_cast<std::size_t>(Below(256)) % (Operations().size() + 1);
    if (!view) {
      Create();
    } else if (place < Operations().size()) {
      Operations()[place].run(*this);
    } else {
      Send(WM_SETREDRAW, static_cast<WPARAM>(Below(2)), 0);
    }
  }

  int operations = 0;

 private:
  void NameFiles(FileNameList* files) override {
    for (int count = Below(4); count > 0; --count) files->push_back(Text());
  }

  bool Called(const std::string&) override {
    if (view && depth < kDeepest && operations < kMostOperations && OneIn(6)) {
      ++depth;
      RunOne();
      --depth;
    }
    return !OneIn(2);
  }

  int depth = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
  const std::uint8_t* const end = bytes + length;
  const HWND window = MakeHostWindow();
  {
    InputHost host(window, bytes, end);
    while (bytes != end && host.operations < kMostOperations) {
      host.RunOne();
      HandleQueuedMessages();
    }
  }
  DestroyWindow(window);
  HandleQueuedMessages();
  return 0;
}
