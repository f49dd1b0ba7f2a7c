// When the shared icon list is made and refilled, counted call by call. The library looks each
// image function up once in a process, so that the counting has to stand before its first use.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/fake_icons.h"
#include "support/host_window.h"
#include "support/scripted_platform.h"

namespace {

ScriptedPlatform* platform = nullptr;

// How often each function that makes, fills or colours a list was called.
using Calls = std::map<std::string, std::ptrdiff_t>;

const Calls NOTHING;
const Calls COLOR = {{"ImageList_SetBkColor", 1}};

// One complete refill from a list of that many images, and perhaps the colour.
Calls Refill(std::ptrdiff_t count, Calls with = {}) {
  with.insert({{"ImageList_Remove", 1},
               {"ImageList_GetIcon", count},
               {"ImageList_ReplaceIcon", count},
               {"DestroyIcon", count}});
  return with;
}

FakeIcons::Pixels PixelsOf(HIMAGELIST list, int index) {
  const HICON icon = ImageList_GetIcon(list, index, ILD_NORMAL);
  ICONINFO parts = {};
  EXPECT_TRUE(GetIconInfo(icon, &parts));
  FakeIcons::Pixels pixels = {};
  GetBitmapBits(parts.hbmColor, sizeof pixels, pixels.data());
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  DestroyIcon(icon);
  return pixels;
}

// Whether the list holds, one by one, what the images of the other one become in sixteen bits of
// colour, on the list's present background.
bool HoldsCopies(HIMAGELIST list, HIMAGELIST of) {
  const HIMAGELIST copies = ImageList_Create(FakeIcons::SIDE, FakeIcons::SIDE, ILC_COLOR16, 0, 1);
  ImageList_SetBkColor(copies, ImageList_GetBkColor(list));
  const int count = ImageList_GetImageCount(of);
  bool same = ImageList_GetImageCount(list) == count;
  for (int i = 0; same && i < count; ++i) {
    FakeIcons::Append(copies, ImageList_GetIcon(of, i, ILD_NORMAL));
    same = PixelsOf(list, i) == PixelsOf(copies, i);
  }
  ImageList_Destroy(copies);
  return same;
}

class IconRefill : public HostTest {
 protected:
  static void SetUpTestSuite() { platform = new ScriptedPlatform; }
  static void TearDownTestSuite() { delete platform; }

  void SetUp() override {
    HostTest::SetUp();
    other = GetIQVLTreeView();
    ASSERT_NE(other->Create(host, 7, 0, 0, 50, 50, 0, nullptr), nullptr);
    ASSERT_NE(CreateView(), nullptr);
    Take();
  }

  void TearDown() override {
    ReleaseIQVLTreeView(other);
    platform->answers.clear();
    HostTest::TearDown();
  }

  // The calls since the last look.
  static Calls Take() {
    Calls calls;
    for (const std::string& line : platform->Take()) ++calls[line];
    std::erase_if(calls, [](const auto& call) {
      const std::string& name = call.first;
      return (!name.starts_with("ImageList_") && name != "DestroyIcon") ||
             name == "ImageList_GetImageCount" || name == "ImageList_GetIconSize";
    });
    return calls;
  }

  static HIMAGELIST ListOf(IQVLTreeView* tree) {
    return reinterpret_cast<HIMAGELIST>(
        SendMessageW(tree->GetControlWindow(), TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
  }

  IQVLTreeView* other = nullptr;
  QVLTreeViewItem file;
};

// Has to be the first: the list is made once in a process.
TEST_F(IconRefill, FirstUse) {
  FakeIcons icons;
  icons.Add(3);
  view->SetBkColor(RGB(9, 9, 9));
  EXPECT_EQ(Take(), NOTHING) << "a colour alone makes no list";

  const Calls attempts = {{"ImageList_Create", 2}};
  platform->answers["ImageList_Create"] = {ERROR_NOT_ENOUGH_MEMORY};
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), attempts) << "for the images and for the colour";
  EXPECT_EQ(ListOf(view), nullptr);
  const ItemHandle item = view->InsertItem(&file, -1);
  EXPECT_NE(item, -1);
  EXPECT_TRUE(view->UpdateItem(&file, item));
  EXPECT_EQ(Take(), attempts) << "each synchronisation tries again";

  // Only the first of the two attempts fails.
  icons.asked.clear();
  icons.onQuestion = [&] {
    if (icons.asked.size() > 1) platform->answers.clear();
  };
  EXPECT_TRUE(other->UseSystemImageList());
  EXPECT_EQ(Take(), (Calls{{"ImageList_Create", 2}, {"ImageList_SetBkColor", 1}}));
  const HIMAGELIST shared = ListOf(other);
  int width = 0;
  int height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(shared, &width, &height));
  EXPECT_EQ(std::pair(width, height), std::pair(16, 16));
  EXPECT_EQ(ImageList_GetImageCount(shared), 0);
  other->InsertItem(&file, -1);
  EXPECT_EQ(Take(), Refill(3));
  EXPECT_TRUE(HoldsCopies(shared, icons.list));
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(3, COLOR));
  EXPECT_EQ(ListOf(view), shared);
}

TEST_F(IconRefill, OncePerViewAndChange) {
  FakeIcons icons;
  icons.Add(5);
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(5, COLOR));
  const HIMAGELIST shared = ListOf(view);
  EXPECT_NE(shared, icons.list);
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), COLOR) << "nothing has changed";
  EXPECT_TRUE(other->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(5, COLOR)) << "a view's first use";
  EXPECT_EQ(ListOf(other), shared);
  const ItemHandle item = view->InsertItem(&file, -1);
  const ItemHandle otherItem = other->InsertItem(&file, -1);
  EXPECT_EQ(Take(), NOTHING);

  icons.Add();
  view->InsertItem(&file, -1);
  EXPECT_EQ(Take(), Refill(6));
  EXPECT_TRUE(HoldsCopies(shared, icons.list));
  view->InsertItem(&file, -1);
  view->UpdateItem(&file, item);
  EXPECT_EQ(Take(), NOTHING);
  other->UpdateItem(&file, otherItem);
  EXPECT_EQ(Take(), Refill(6)) << "the other view's count was still the old one";
  other->InsertItem(&file, -1);
  EXPECT_EQ(Take(), NOTHING);

  ImageList_Remove(icons.list, 0);
  view->UpdateItem(&file, item);
  EXPECT_EQ(Take(), Refill(5));
  EXPECT_TRUE(HoldsCopies(shared, icons.list)) << "also a list that has become shorter";
  icons.refuses = true;
  icons.Add();
  view->InsertItem(&file, -1);
  EXPECT_EQ(Take(), NOTHING) << "there was nothing to follow";

  other->Destroy();
  view->Destroy();
  icons.refuses = false;
  CreateView();
  Take();
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Take(), Refill(6, COLOR)) << "a new view starts from nothing";
  EXPECT_EQ(ListOf(view), shared) << "the list outlives the views";
}

TEST_F(IconRefill, ListHasTheColourSetLast) {
  FakeIcons icons;
  icons.Add();
  EXPECT_TRUE(view->UseSystemImageList());
  const HIMAGELIST shared = ListOf(view);
  EXPECT_EQ(ImageList_GetBkColor(shared), 0u) << "a view without a colour brings 0";
  Take();
  view->SetBkColor(RGB(1, 2, 3));
  EXPECT_EQ(Take(), COLOR) << "a colour copies no image again";
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(1, 2, 3));
  other->SetBkColor(RGB(4, 5, 6));
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(1, 2, 3)) << "the other view has no system icons";

  platform->Take();
  other->UseSystemImageList();
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(4, 5, 6));
  const Lines lines = platform->Take();
  EXPECT_LT(std::find(lines.begin(), lines.end(), "ImageList_ReplaceIcon"),
            std::find(lines.begin(), lines.end(), "ImageList_SetBkColor"))
      << "the earlier colour is copied under";
}

// What fails while icons are copied is lost until the shell's list changes again.
TEST_F(IconRefill, FailingCopiesStopNothing) {
  FakeIcons icons;
  icons.Add(3);
  EXPECT_TRUE(view->UseSystemImageList());
  using Row = std::pair<const char*, int>;
  for (const auto& [failing, result] :
       {Row{"ImageList_GetIcon", 0}, {"ImageList_ReplaceIcon", -1}}) {
    SCOPED_TRACE(failing);
    Take();
    platform->answers[failing] = {ERROR_NOT_ENOUGH_MEMORY, result};
    icons.Add();
    EXPECT_NE(view->InsertItem(&file, -1), -1);
    EXPECT_EQ(Take(), Refill(ImageList_GetImageCount(icons.list)));
    EXPECT_EQ(ImageList_GetImageCount(ListOf(view)), 0);
    platform->answers.clear();
    view->InsertItem(&file, -1);
    EXPECT_EQ(Take(), NOTHING) << "the counts are equal";
    icons.Add();
    view->InsertItem(&file, -1);
    EXPECT_TRUE(HoldsCopies(ListOf(view), icons.list));
  }
}

// The control leaves the images of its check boxes behind. Every other list is the host's, also the
// control's own once the host has put another in its place.
TEST_F(IconRefill, ImagesOfCheckBoxesGoWithTheView) {
  const HIMAGELIST own = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  const auto callsOfALife = [&](std::uint32_t style, bool ownImages, bool hostGoesFirst) {
    const HWND tree = CreateView(style);
    const bool isList = (style & QVLS_LISTVIEW) != 0;
    if (ownImages) {
      const UINT set = isList ? LVM_SETIMAGELIST : TVM_SETIMAGELIST;
      const LRESULT made = SendMessageW(tree, set, TVSIL_STATE, reinterpret_cast<LPARAM>(own));
      EXPECT_TRUE(ImageList_Destroy(reinterpret_cast<HIMAGELIST>(made)));
    }
    Take();
    if (hostGoesFirst) DestroyWindow(GetParent(tree));
    view->Destroy();
    view->Destroy();
    return Take();
  };
  for (const std::uint32_t style : {0u, std::uint32_t{QVLS_LISTVIEW}}) {
    const Calls oneList = {{"ImageList_Destroy", 1}};
    EXPECT_EQ(callsOfALife(style | QVLS_CHECKBOXES, false, false), oneList);
    EXPECT_EQ(callsOfALife(style | QVLS_CHECKBOXES, false, true), oneList);
    EXPECT_EQ(callsOfALife(style | QVLS_CHECKBOXES, true, false), NOTHING);
    EXPECT_EQ(callsOfALife(style, false, false), NOTHING);
  }
  EXPECT_TRUE(ImageList_Destroy(own));
}

// The real list of the shell grows as new types are asked for.
TEST_F(IconRefill, FollowsEachNewTypeOfTheShell) {
  // The first of these bring icons of their own, the others share one.
  std::vector<std::basic_string<WCHAR>> names = {TEXT("C:\\f.txt"), TEXT("C:\\f.chm"),
                                                 TEXT("C:\\f.msi"), TEXT("C:\\f.htm")};
  for (int i = 0; names.size() < 40; ++i) {
    names.push_back(TEXT("C:\\f.z") + std::basic_string<WCHAR>(1, static_cast<WCHAR>('A' + i)));
  }
  SHFILEINFOW info = {};
  const auto system = reinterpret_cast<HIMAGELIST>(
      SHGetFileInfoW(TEXT("*.exe"), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                     SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES));
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_TRUE(other->UseSystemImageList()) << "a second copy, on the colour that the first one set";
  EXPECT_TRUE(HoldsCopies(ListOf(view), system));
  const ItemHandle folder = Insert(TEXT("folder"));  // collapsed: a tree is slow to show so many
  Take();
  int count = ImageList_GetImageCount(system);
  int changes = 0;
  for (std::size_t i = 0; i < 10000; ++i) {
    file.SetFileName(names[i % names.size()].c_str());
    ASSERT_NE(view->InsertItem(&file, folder), -1);
    const int now = ImageList_GetImageCount(system);
    ASSERT_EQ(Take(), now == count ? NOTHING : Refill(now)) << i;
    if (now == count) continue;
    count = now;
    ++changes;
    EXPECT_TRUE(HoldsCopies(ListOf(view), system)) << i;
  }
  EXPECT_GT(changes, 0);
}

}  // namespace
