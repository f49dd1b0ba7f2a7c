#include "random/hostile_host.h"

#include <windows.h>

#include <commctrl.h>

#include <climits>
#include <deque>
#include <iterator>
#include <utility>

#include "random/acts.h"

namespace {

constexpr int DEEPEST = 3;
constexpr std::size_t WORSE_DEEDS = 3;
constexpr int MOST_ACTIONS = 300;
constexpr std::size_t MOST_SEEN = 16;

// Bytes that decide what happens; when they are used up everything is 0.
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

class HostileHost final : public Player {
 public:
  explicit HostileHost(ByteSource& source)
      : Player(MakeStoryWindow(), false, [&](int limit) { return source.Byte() % limit; }),
        bytes(source) {}

  ~HostileHost() override {
    Release();
    DestroyWindow(host);
    PumpStory();
  }

  void Play() {
    Create();
    while (!bytes.Empty() && actions < MOST_ACTIONS) {
      DoAnything();
      PumpStory();
    }
  }

 private:
  void DoAnything() {
    ++actions;
    if (!view) {
      view = GetIQVLTreeView();
      view->SetClient(this);
      return Create();
    }
    const std::size_t place = bytes.Byte() % (Acts().size() + WORSE_DEEDS);
    if (place < Acts().size()) {
      Acts()[place].run(*this);
    } else {
      DoWorse(place - Acts().size());
    }
  }

  void DoWorse(std::size_t deed) {
    if (deed == 0) Release();
    if (deed == 1) SendMessageW(Control(), WM_SETREDRAW, bytes.Bit(), 0);
    if (deed == 2) ForgeNotification();
  }

  // The pointer goes first: what the control says while it goes must find no view to act on.
  void Release() { ReleaseIQVLTreeView(std::exchange(view, nullptr)); }

  void ForgeNotification() {
    constexpr UINT CODES[] = {TVN_BEGINDRAGW, TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW,
                              LVN_BEGINDRAG,  LVN_ITEMCHANGED, LVN_COLUMNCLICK};
    const HWND control = Control();
    NMTREEVIEWW record = {};
    record.hdr = {control, CONTROL_ID, CODES[bytes.Byte() % std::size(CODES)]};
    record.itemNew.hItem = reinterpret_cast<HTREEITEM>(Item());
    SendMessageW(GetParent(control), WM_NOTIFY, CONTROL_ID, reinterpret_cast<LPARAM>(&record));
  }

  void Create() override {
    QVLTreeViewStyleExt ext;
    ext.SetStyle(bytes.Bit() ? LVS_EDITLABELS : 0U);
    const auto style = static_cast<std::uint32_t>(bytes.Byte() | bytes.Byte() << 8);
    view->Create(bytes.Byte() == 77 ? nullptr : host, CONTROL_ID, 0, 0, 250, 250, style, &ext);
  }

  ItemHandle Insert() override {
    seen.push_back(Player::Insert());
    if (seen.size() > MOST_SEEN) seen.pop_front();
    return seen.back();
  }

  ItemHandle Item() override {
    const int kind = bytes.Byte();
    if (kind < 200 && !seen.empty()) return seen[static_cast<std::size_t>(kind) % seen.size()];
    if (kind < 230) return kind - 215;
    return static_cast<ItemHandle>(AnyNumber()) << (bytes.Bit() ? 32 : 0);
  }

  // Mostly small, now and then the greatest and smallest there are.
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

  // Acts while the library waits for the answer, then answers.
  bool Heard(const std::string&) override {
    const int wanted = bytes.Byte();
    if (wanted < 40 && depth < DEEPEST && actions < MOST_ACTIONS && view) {
      ++depth;
      DoAnything();
      --depth;
    }
    return bytes.Bit();
  }

  ByteSource& bytes;
  std::deque<ItemHandle> seen;
  int depth = 0;
  int actions = 0;
};

}  // namespace

void PlayHostileHost(const std::uint8_t* bytes, std::size_t length) {
  ByteSource source(bytes, length);
  HostileHost(source).Play();
}
