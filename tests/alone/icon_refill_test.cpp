// When the shared icon list is made and refilled, counted call by call. The library looks each
// image function up once in a process, so that the counting has to stand before its first use.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/fake_icons.h"
#include "support/host_window.h"
#include "support/scripted_platform.h"

namespace {

ScriptedPlatform* platform = nullptr;

// The arguments of the lists that were asked for. They are noted on the way to the platform.
std::vector<std::vector<int>> lists;
ImportPatch* lookup = nullptr;
decltype(&ImageList_Create) createNext = nullptr;

HIMAGELIST WINAPI NoteList(int width, int height, UINT flags, int initial, int growth) {
  lists.push_back({width, height, static_cast<int>(flags), initial, growth});
  return createNext(width, height, flags, initial, growth);
}

FARPROC WINAPI Lookup(HMODULE in, LPCSTR name) {
  const FARPROC found = lookup->Original<decltype(GetProcAddress)>()(in, name);
  if (name != std::string("ImageList_Create")) return found;
  createNext = std::bit_cast<decltype(createNext)>(found);
  return std::bit_cast<FARPROC>(&NoteList);
}

// How often each image function was called since the last look.
struct Calls {
  std::ptrdiff_t created, removed, copied, added, destroyed, colored;

  bool operator==(const Calls&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Calls& calls) {
  return out << calls.created << " lists, " << calls.removed << " emptied, " << calls.copied
             << " icons, " << calls.added << " added, " << calls.destroyed << " destroyed, "
             << calls.colored << " colours";
}

// One complete refill from a list of that many images.
constexpr Calls Refill(std::ptrdiff_t count, std::ptrdiff_t colored = 0) {
  return {0, 1, count, count, count, colored};
}

constexpr Calls NOTHING = {};

class IconRefill : public HostTest {
 protected:
  static void SetUpTestSuite() {
    platform = new ScriptedPlatform;
    lookup = new ImportPatch("GetProcAddress", &Lookup);
  }
  static void TearDownTestSuite() {
    delete lookup;
    delete platform;
  }

  void SetUp() override {
    HostTest::SetUp();
    other = GetIQVLTreeView();
    other->Create(host, 7, 0, 0, 50, 50, 0, nullptr);
    control = CreateView();
    ASSERT_NE(control, nullptr);
    Take();
  }

  void TearDown() override {
    ReleaseIQVLTreeView(other);
    platform->failures.clear();
    platform->results.clear();
    HostTest::TearDown();
  }

  static Calls Take() {
    const std::vector<std::string> lines = platform->Take();
    const auto count = [&](const char* name) {
      return std::count(lines.begin(), lines.end(), std::string(name));
    };
    const auto destroyed = static_cast<std::ptrdiff_t>(platform->errorsAtDestroyIcon.size());
    platform->errorsAtDestroyIcon.clear();
    return {count("ImageList_Create"),
            count("ImageList_Remove"),
            count("ImageList_GetIcon"),
            count("ImageList_ReplaceIcon"),
            destroyed,
            count("ImageList_SetBkColor")};
  }

  static ItemHandle InsertFile(IQVLTreeView* into, const WCHAR* file = TEXT("a"),
                               ItemHandle parent = -1) {
    QVLTreeViewItem record;
    record.SetFileName(file);
    return into->InsertItem(&record, parent);
  }

  static bool UpdateFile(IQVLTreeView* in, ItemHandle item) {
    QVLTreeViewItem record;
    return in->UpdateItem(&record, item);
  }

  HIMAGELIST ListOf(HWND tree) const {
    return reinterpret_cast<HIMAGELIST>(SendMessageW(tree, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
  }

  IQVLTreeView* other = nullptr;
  HWND control = nullptr;
};

// Has to be the first: the list is made once in a process.
TEST_F(IconRefill, FirstUse) {
  FakeIcons icons;
  for (std::uint32_t seed = 1; seed <= 3; ++seed) icons.Add(seed);
  view->SetBkColor(RGB(9, 9, 9));
  EXPECT_EQ(Take(), NOTHING) << "a colour alone makes no list";

  platform->failures["ImageList_Create"] = ERROR_NOT_ENOUGH_MEMORY;
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), (Calls{2, 0, 0, 0, 0, 0})) << "for the images and for the colour";
  EXPECT_EQ(ListOf(control), nullptr);
  const ItemHandle item = InsertFile(view);
  EXPECT_NE(item, -1);
  EXPECT_TRUE(UpdateFile(view, item));
  EXPECT_EQ(Take(), (Calls{2, 0, 0, 0, 0, 0})) << "each synchronisation tries again";

  // Only the first of the two attempts fails.
  icons.onQuestion = [&] {
    if (icons.questions.size() > 1) platform->failures.clear();
  };
  icons.questions.clear();
  EXPECT_TRUE(other->UseSystemImageList());
  EXPECT_EQ(Take(), (Calls{2, 0, 0, 0, 0, 1}));
  const HIMAGELIST shared = ListOf(other->GetControlWindow());
  ASSERT_NE(shared, nullptr);
  EXPECT_EQ(ImageList_GetImageCount(shared), 0);
  InsertFile(other);
  EXPECT_EQ(Take(), Refill(3));
  EXPECT_TRUE(SameImages(icons.list, shared));
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(3, 1));
  EXPECT_EQ(ListOf(control), shared);
  EXPECT_EQ(lists, std::vector<std::vector<int>>(6, {16, 16, ILC_COLOR16, 0, 100}));
}

TEST_F(IconRefill, OncePerViewAndChange) {
  FakeIcons icons;
  for (std::uint32_t seed = 1; seed <= 5; ++seed) icons.Add(seed);
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(5, 1));
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), (Calls{0, 0, 0, 0, 0, 1})) << "nothing has changed";
  EXPECT_TRUE(other->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(5, 1)) << "a view's first use";
  const ItemHandle item = InsertFile(view);
  const ItemHandle otherItem = InsertFile(other);
  EXPECT_EQ(Take(), NOTHING);

  icons.Add(6);
  InsertFile(view);
  EXPECT_EQ(Take(), Refill(6));
  InsertFile(view);
  UpdateFile(view, item);
  EXPECT_EQ(Take(), NOTHING);
  UpdateFile(other, otherItem);
  EXPECT_EQ(Take(), Refill(6)) << "the other view's count was still the old one";
  InsertFile(other);
  EXPECT_EQ(Take(), NOTHING);

  ImageList_Remove(icons.list, 0);
  UpdateFile(view, item);
  EXPECT_EQ(Take(), Refill(5));
  view->SetBkColor(1);
  EXPECT_EQ(Take(), (Calls{0, 0, 0, 0, 0, 1})) << "a colour copies no image again";
  icons.refuses = true;
  icons.Add(7);
  InsertFile(view);
  EXPECT_EQ(Take(), NOTHING);
}

TEST_F(IconRefill, NewViewStartsFromNothing) {
  FakeIcons icons;
  icons.Add(1);
  icons.Add(2);
  EXPECT_TRUE(view->UseSystemImageList());
  ReleaseIQVLTreeView(other);
  other = nullptr;
  view->Destroy();
  Take();
  control = CreateView();
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(2, 1));
}

TEST_F(IconRefill, FirstFillRunsUnderTheEarlierColour) {
  FakeIcons icons;
  icons.Add(1);
  view->SetBkColor(RGB(1, 2, 3));
  platform->Take();
  EXPECT_TRUE(view->UseSystemImageList());
  const std::vector<std::string> lines = platform->Take();
  const auto added = std::find(lines.begin(), lines.end(), "ImageList_ReplaceIcon");
  const auto colored = std::find(lines.begin(), lines.end(), "ImageList_SetBkColor");
  EXPECT_LT(added - lines.begin(), colored - lines.begin());
  EXPECT_NE(colored, lines.end());
}

// What fails while icons are copied is lost until the shell's list changes again.
TEST_F(IconRefill, FailingCopiesStopNothing) {
  FakeIcons icons;
  for (std::uint32_t seed = 1; seed <= 3; ++seed) icons.Add(seed);
  EXPECT_TRUE(view->UseSystemImageList());
  const HIMAGELIST shared = ListOf(control);
  for (const char* failing : {"ImageList_GetIcon", "ImageList_ReplaceIcon"}) {
    Take();
    platform->failures[failing] = ERROR_NOT_ENOUGH_MEMORY;
    platform->results["ImageList_ReplaceIcon"] = -1;
    icons.Add(4);
    const int count = ImageList_GetImageCount(icons.list);
    EXPECT_NE(InsertFile(view), -1) << failing;
    const Calls calls = Take();
    EXPECT_EQ(calls.copied, count) << failing;
    EXPECT_EQ(calls.added, count) << failing;
    EXPECT_EQ(ImageList_GetImageCount(shared), 0) << failing;
    platform->failures.clear();
    InsertFile(view);
    EXPECT_EQ(Take(), NOTHING) << failing << ": the counts are equal";
    icons.Add(5);
    InsertFile(view);
    EXPECT_TRUE(SameImages(icons.list, shared)) << failing;
  }
}

// The control leaves the images of its check boxes behind.
TEST_F(IconRefill, ImagesOfCheckBoxesGoWithTheView) {
  for (const bool ownImages : {false, true}) {
    ASSERT_NE(CreateView(QVLS_CHECKBOXES), nullptr);
    const HIMAGELIST own = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    if (ownImages) {
      EXPECT_TRUE(view->SetStateImageList(own));
    }
    platform->Take();
    view->Destroy();
    view->Destroy();
    std::vector<std::string> lines = platform->Take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "ImageList_Destroy"), 1);
    EXPECT_TRUE(ImageList_Destroy(own)) << "that one is the host's";
    ASSERT_NE(CreateView(), nullptr);
    view->Destroy();
    lines = platform->Take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "ImageList_Destroy"), 0);
  }
}

// The real list of the shell, which grows as new types are asked for.
class IconRefillOfTheShell : public IconRefill {
 protected:
  // The shell's list, without asking for a type.
  static HIMAGELIST SystemList() {
    SHFILEINFOW info = {};
    return reinterpret_cast<HIMAGELIST>(
        SHGetFileInfoW(TEXT("*.exe"), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                       SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES));
  }
};

TEST_F(IconRefillOfTheShell, FollowsEachNewType) {
  constexpr int ITEMS = 10000;
  // Some of these bring an icon of their own, most share one.
  const std::vector<std::basic_string<WCHAR>> types = [] {
    std::vector<std::basic_string<WCHAR>> made = {TEXT(".txt"), TEXT(".chm"), TEXT(".msi"),
                                                  TEXT(".htm")};
    for (WCHAR last = TEXT('a'); made.size() < 40; ++last) {
      made.push_back(std::basic_string<WCHAR>(TEXT(".z")) + last);
    }
    return made;
  }();
  const HIMAGELIST system = SystemList();
  EXPECT_TRUE(view->UseSystemImageList());
  const HIMAGELIST shared = ListOf(control);
  EXPECT_TRUE(SameImages(system, shared));
  const ItemHandle folder = Insert(TEXT("folder"));  // collapsed: a tree is slow to show so many
  Take();
  int count = ImageList_GetImageCount(system);
  int changes = 0;
  Calls expected = NOTHING;
  for (int i = 0; i < ITEMS; ++i) {
    const auto& type = types[static_cast<std::size_t>(i) % types.size()];
    const std::basic_string<WCHAR> file = TEXT("C:\\folder\\file") + type;
    ASSERT_NE(InsertFile(view, file.c_str(), folder), -1);
    const int now = ImageList_GetImageCount(system);
    if (now == count) continue;
    count = now;
    ++changes;
    ++expected.removed;
    for (auto* part : {&expected.copied, &expected.added, &expected.destroyed}) *part += now;
    EXPECT_TRUE(SameImages(system, shared)) << i;
  }
  EXPECT_GT(changes, 0);
  EXPECT_EQ(Take(), expected);
  EXPECT_TRUE(SameImages(system, shared));
}

TEST_F(IconRefillOfTheShell, EachViewCatchesUpByItself) {
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_TRUE(other->UseSystemImageList());
  const HIMAGELIST system = SystemList();
  const HIMAGELIST shared = ListOf(control);
  // An image that the shell did not ask for is as good as one that it did.
  const HICON icon = ImageList_GetIcon(system, 0, ILD_NORMAL);
  ImageList_ReplaceIcon(system, -1, icon);
  DestroyIcon(icon);
  const int count = ImageList_GetImageCount(system);
  Take();
  InsertFile(view, TEXT("a.txt"));
  EXPECT_EQ(Take(), Refill(count));
  EXPECT_TRUE(SameImages(system, shared));
  InsertFile(other, TEXT("a.txt"));
  EXPECT_EQ(Take(), Refill(count));
  EXPECT_TRUE(SameImages(system, shared));
}

}  // namespace
