// When the shared list of shell icons is made and refilled, call by call. The library looks each
// image function up once in a process, so the recorder starts before the first use.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "qvl.h"
#include "support/fake_icons.h"
#include "support/host_window.h"
#include "support/scripted_platform.h"

namespace {

// The calls that make, fill or colour a list, with the letters of the logs.
const std::map<std::string, char> kLetters = {
    {"ImageList_Create", 'N'},     {"ImageList_Destroy", 'X'},     {"ImageList_Remove", 'R'},
    {"ImageList_GetIcon", 'G'},    {"ImageList_ReplaceIcon", 'A'}, {"DestroyIcon", 'D'},
    {"ImageList_SetBkColor", 'C'},
};

// The log of one complete refill.
std::string Refill(int images) {
  std::string log = "R";
  while (images-- > 0) log += "GAD";
  return log;
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

// Whether the images of `list` are those of `of` in sixteen bits of colour, on the present
// background of `list`.
bool HoldsCopies(HIMAGELIST list, HIMAGELIST of) {
  const HIMAGELIST copies = ImageList_Create(FakeIcons::kSide, FakeIcons::kSide, ILC_COLOR16, 0, 1);
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
    HostTest::TearDown();
  }

  // The log since the last call.
  static std::string Take() {
    std::string log;
    for (const std::string& line : platform->Take()) {
      if (kLetters.contains(line)) log += kLetters.at(line);
    }
    return log;
  }

  std::string UseIcons(IQVLTreeView* tree) {
    EXPECT_TRUE(tree->UseSystemImageList());
    return Take();
  }

  std::string InsertFile(IQVLTreeView* tree) {
    items[tree] = tree->InsertItem(&file, -1);
    EXPECT_NE(items[tree], -1);
    return Take();
  }

  // Updates the tree's last item.
  std::string UpdateFile(IQVLTreeView* tree) {
    EXPECT_TRUE(tree->UpdateItem(&file, items[tree]));
    return Take();
  }

  static HIMAGELIST ListOf(IQVLTreeView* tree) {
    return reinterpret_cast<HIMAGELIST>(
        SendMessageW(tree->GetControlWindow(), TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
  }

  static inline ScriptedPlatform* platform = nullptr;
  IQVLTreeView* other = nullptr;
  std::map<IQVLTreeView*, ItemHandle> items;
  QVLTreeViewItem file;
};

// The first case: the list is made once in a process.
TEST_F(IconRefill, ListIsMadeByTheFirstUseThatSucceeds) {
  FakeIcons icons;
  icons.Add(3);
  view->SetBkColor(RGB(9, 9, 9));
  EXPECT_EQ(Take(), "") << "a colour alone makes no list";
  platform->answers["ImageList_Create"] = {ERROR_NOT_ENOUGH_MEMORY};
  EXPECT_EQ(UseIcons(view), "NN") << "for the images and for the colour";
  EXPECT_EQ(ListOf(view), nullptr);
  EXPECT_EQ(InsertFile(view), "N");
  EXPECT_EQ(UpdateFile(view), "N");

  // Only the first of two attempts fails.
  icons.onQuestion = [asked = 0]() mutable {
    if (++asked == 2) platform->answers.clear();
  };
  EXPECT_EQ(UseIcons(other), "NNC");
  const HIMAGELIST shared = ListOf(other);
  int width = 0, height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(shared, &width, &height) && width == 16 && height == 16);
  EXPECT_EQ(ImageList_GetImageCount(shared), 0);
  EXPECT_EQ(InsertFile(other), Refill(3));
  EXPECT_TRUE(HoldsCopies(shared, icons.list));
  EXPECT_EQ(UseIcons(view), Refill(3) + "C");
  EXPECT_EQ(ListOf(view), shared);
}

TEST_F(IconRefill, RefillsOncePerViewAndChange) {
  FakeIcons icons;
  icons.Add(5);
  EXPECT_EQ(UseIcons(view), Refill(5) + "C");
  const HIMAGELIST shared = ListOf(view);
  EXPECT_EQ(ImageList_GetBkColor(shared), 0u) << "of a view without a colour";
  EXPECT_EQ(UseIcons(view), "C");
  view->SetBkColor(RGB(1, 2, 3));
  EXPECT_EQ(Take(), "C") << "copies no image";
  other->SetBkColor(RGB(4, 5, 6));
  EXPECT_EQ(Take(), "") << "the other view has no system icons yet";
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(1, 2, 3));
  EXPECT_EQ(UseIcons(other), Refill(5) + "C");
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(4, 5, 6));
  EXPECT_EQ(ListOf(other), shared);
  EXPECT_EQ(InsertFile(view) + InsertFile(other), "");

  icons.Add();
  EXPECT_EQ(InsertFile(view), Refill(6));
  EXPECT_TRUE(HoldsCopies(shared, icons.list));
  EXPECT_EQ(InsertFile(view), "");
  EXPECT_EQ(UpdateFile(other), Refill(6)) << "each view has a count";
  EXPECT_EQ(InsertFile(other), "");

  ImageList_Remove(icons.list, 0);
  EXPECT_EQ(UpdateFile(view), Refill(5));
  EXPECT_TRUE(HoldsCopies(shared, icons.list));
  icons.refuses = true;
  icons.Add();
  EXPECT_EQ(InsertFile(view), "");
  icons.refuses = false;

  // What fails while icons are copied is missing until the shell's list changes again.
  for (const auto& [failing, result] :
       {std::pair{"ImageList_GetIcon", 0}, {"ImageList_ReplaceIcon", -1}}) {
    platform->answers[failing] = {ERROR_NOT_ENOUGH_MEMORY, result};
    icons.Add();
    EXPECT_EQ(InsertFile(view), Refill(ImageList_GetImageCount(icons.list))) << failing;
    EXPECT_EQ(ImageList_GetImageCount(shared), 0);
    platform->answers.clear();
    EXPECT_EQ(InsertFile(view), "") << "the counts are equal";
    icons.Add();
    InsertFile(view);
    EXPECT_TRUE(HoldsCopies(shared, icons.list)) << failing;
  }

  other->Destroy();
  view->Destroy();
  CreateView();
  Take();
  EXPECT_EQ(UseIcons(view), Refill(ImageList_GetImageCount(icons.list)) + "C");
  EXPECT_EQ(ListOf(view), shared) << "the list outlives the views";
}

// The control does not destroy the images of its check boxes, so the view does. Every other list
// belongs to the host, which may replace these images by its own.
TEST_F(IconRefill, ViewDestroysOnlyTheImagesOfCheckBoxes) {
  const HIMAGELIST own = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  const auto logOfDestroy = [&](std::uint32_t style, bool ownImages, bool hostGoesFirst) {
    OpenView(style);
    if (ownImages) {
      const UINT set = IsList() ? LVM_SETIMAGELIST : TVM_SETIMAGELIST;
      const LRESULT made = Ask(set, TVSIL_STATE, reinterpret_cast<LPARAM>(own));
      EXPECT_TRUE(ImageList_Destroy(reinterpret_cast<HIMAGELIST>(made)));
    }
    Take();
    if (hostGoesFirst) DestroyWindow(parent);
    view->Destroy();
    view->Destroy();
    return Take();
  };
  for (const std::uint32_t style : {0u, std::uint32_t{QVLS_LISTVIEW}}) {
    EXPECT_EQ(logOfDestroy(style | QVLS_CHECKBOXES, false, false), "X");
    EXPECT_EQ(logOfDestroy(style | QVLS_CHECKBOXES, false, true), "X");
    EXPECT_EQ(logOfDestroy(style | QVLS_CHECKBOXES, true, false), "");
    EXPECT_EQ(logOfDestroy(style, false, false), "");
  }
  EXPECT_TRUE(ImageList_Destroy(own));
}

// The list of this runtime's own shell grows as new types are asked for.
TEST_F(IconRefill, FollowsEachNewTypeOfTheShellOnTestRuntime) {
  SHFILEINFOW info = {};
  const auto system = reinterpret_cast<HIMAGELIST>(
      SHGetFileInfoW(TEXT("*.exe"), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                     SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES));
  UseIcons(view);
  UseIcons(other);
  EXPECT_TRUE(HoldsCopies(ListOf(view), system)) << "on the colour that the first view set";
  const int first = ImageList_GetImageCount(system);
  int count = first;
  for (const WCHAR* name : {TEXT("f.txt"), TEXT("f.chm"), TEXT("f.msi"), TEXT("f.zA"), TEXT("f.zB"),
                            TEXT("f.txt"), TEXT("f.msi"), TEXT("f.zA")}) {
    file.SetFileName(name);
    const std::string log = InsertFile(view);
    const int now = ImageList_GetImageCount(system);
    EXPECT_EQ(log, now == count ? "" : Refill(now));
    EXPECT_TRUE(HoldsCopies(ListOf(view), system));
    count = now;
  }
  EXPECT_GT(count, first);
}

}  // namespace
