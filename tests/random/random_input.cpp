#include "random/random_input.h"

#include <windows.h>

#include <commctrl.h>

#include <climits>
#include <deque>
#include <iterator>
#include <utility>

#include "random/operations.h"

namespace {

constexpr int kMaxDepth = 3;
constexpr std::size_t kFurtherOperations = 3;
constexpr int kMaxOperations = 300;
constexpr std::size_t kMaxHandles = 16;

// The bytes of the input. At their end everything is 0.
class ByteSource {
 public:
  ByteSource(const std::uint8_t* bytes, std::size_t length) : next(bytes), left(length) {}

  bool Empty() const { return left == 0; }
  std::uint8_t Byte() {
    if (left == 0) return 0;
    --left;
    return *next++;
  }
  bool Bit() { return (Byte() & 1) != 0; }

 private:
  const std::uint8_t* next;
  std::size_t left;
};

class RandomInputHost final : public RandomHost {
 public:
  explicit RandomInputHost(ByteSource& source)
      : RandomHost(MakeHostWindow(), false, [&](int limit) { return source.Byte() % limit; }),
        bytes(source) {}

  ~RandomInputHost() override {
    Release();
    DestroyWindow(host);
    HandleMessages();
  }

  void Run() {
    Create();
    while (!bytes.Empty() && actions < kMaxOperations) {
      RunAny();
      HandleMessages();
    }
  }

 private:
  void RunAny() {
    ++actions;
    if (!view) {
      view = GetIQVLTreeView();
      view->SetClient(this);
      return Create();
    }
    const std::size_t place = bytes.Byte() % (Operations().size() + kFurtherOperations);
    if (place < Operations().size()) {
      Operations()[place].run(*this);
    } else {
      RunFurther(place - Operations().size());
    }
  }

  void RunFurther(std::size_t reaction) {
    if (reaction == 0) Release();
    if (reaction == 1) SendMessageW(Control(), WM_SETREDRAW, bytes.Bit(), 0);
    if (reaction == 2) ForgeNotification();
  }

  // Clears the pointer first, because callbacks from the destroyed control must not use the view.
  void Release() { ReleaseIQVLTreeView(std::exchange(view, nullptr)); }

  void ForgeNotification() {
    constexpr UINT kCodes[] = {TVN_BEGINDRAGW, TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW,
                               LVN_BEGINDRAG,  LVN_ITEMCHANGED, LVN_COLUMNCLICK};
    const HWND control = Control();
    NMTREEVIEWW record = {};
    record.hdr = {control, kControlId, kCodes[bytes.Byte() % std::size(kCodes)]};
    record.itemNew.hItem = reinterpret_cast<HTREEITEM>(Item());
    SendMessageW(GetParent(control), WM_NOTIFY, kControlId, reinterpret_cast<LPARAM>(&record));
  }

  void Create() override {
    QVLTreeViewStyleExt ext;
    ext.SetStyle(bytes.Bit() ? LVS_EDITLABELS : 0U);
    const auto style = static_cast<std::uint32_t>(bytes.Byte() | bytes.Byte() << 8);
    view->Create(bytes.Byte() == 77 ? nullptr : host, kControlId, 0, 0, 250, 250, style, &ext);
  }

  ItemHandle Insert() override {
    handles.push_back(RandomHost::Insert());
    if (handles.size() > kMaxHandles) handles.pop_front();
    return handles.back();
  }

  ItemHandle Item() override {
    const int kind = bytes.Byte();
    if (kind < 200 && !handles.empty())
      return handles[static_cast<std::size_t>(kind) % handles.size()];
    if (kind < 230) return kind - 215;
    return static_cast<ItemHandle>(AnyNumber()) << (bytes.Bit() ? 32 : 0);
  }

  // Mostly small, sometimes the largest or the smallest.
  int AnyNumber() {
    const int kind = bytes.Byte();
    if (kind == 255) return INT_MAX;
    if (kind == 254) return INT_MIN;
    return kind < 250 ? kind - 5 : -(kind << 16);
  }
  int Number(int, int) override { return AnyNumber(); }
  POINT Point(ItemHandle) override {
    const int x = AnyNumber();
    return {x, AnyNumber()};
  }
  WPARAM Key() override { return bytes.Byte(); }
  bool MayExpand(ItemHandle, bool) override { return true; }

  std::basic_string<WCHAR> Text() override {
    const int kind = bytes.Byte();
    if (kind > 250) return std::basic_string<WCHAR>(static_cast<std::size_t>(kind) * 20, TEXT('x'));
    std::basic_string<WCHAR> text(TEXT("C:\\a"));
    for (int i = 0; i < kind % 9; ++i) {
      text += static_cast<WCHAR>(bytes.Byte() | (bytes.Bit() ? 0xD800 : 0));
    }
    return text;
  }

  void NameFiles(FileNameList* files) override {
    const int count = bytes.Byte() % 4;
    for (int i = 0; i < count; ++i) files->push_back(Text());
  }

  // Runs operations inside the callback, then answers.
  bool OnCallback(const std::string&) override {
    const int wanted = bytes.Byte();
    if (wanted < 40 && depth < kMaxDepth && actions < kMaxOperations && view) {
      ++depth;
      RunAny();
      --depth;
    }
    return bytes.Bit();
  }

  ByteSource& bytes;
  std::deque<ItemHandle> handles;
  int depth = 0;
  int actions = 0;
};

}  // namespace

void RunRandomInput(const std::uint8_t* bytes, std::size_t length) {
  ByteSource source(bytes, length);
  RandomInputHost(source).Run();
}
