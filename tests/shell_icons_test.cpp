// Shell icons of items: what the shell is asked, and what becomes of its answer.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "qvl.h"
#include "support/fake_icons.h"
#include "support/host_window.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;
using Texts = std::vector<Text>;
using Images = std::vector<int>;

constexpr int TYPES[] = {0, 1, 2, -1};
constexpr std::uint32_t VIEWS[] = {0, QVLS_LISTVIEW};

// What the shell takes of a name at most.
constexpr std::size_t LONGEST = 259;

// Two characters for the platform, one for the reader.
const Text PAIR = {static_cast<WCHAR>(0xD83D), static_cast<WCHAR>(0xDFFF)};
const Text FIRST_PAIR = {static_cast<WCHAR>(0xD800), static_cast<WCHAR>(0xDC00)};
const Text FULL_WIDTH = {static_cast<WCHAR>(0xFF21)};

Text Repeat(std::size_t count) { return Text(count, TEXT('x')); }

class ShellIcons : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    icons.Add(3);
  }

  void Open(std::uint32_t style = 0) {
    ASSERT_NE(CreateView(style), nullptr);
    TakeNames();
    ASSERT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(TakeNames(), Texts{TEXT("*.exe")}) << "any type tells the shell's list";
  }

  // The names that the shell was asked for since the last call.
  Texts TakeNames() { return std::exchange(icons.asked, {}); }

  ItemHandle InsertFile(const Text& file, int type) {
    record.SetType(type);
    record.SetFileName(file.c_str());
    record.SetImageIndex(77);
    return view->InsertItem(&record, -1);
  }

  // The normal and the selected image of a tree's item and the image of a list's row, as they are
  // written when it is inserted and when it is updated.
  Images ImagesOf(const Text& file, int type = 0) {
    const SentMessages sent;
    EXPECT_TRUE(view->UpdateItem(&record, InsertFile(file, type)));
    Images images;
    for (const SentMessage& one : sent.all) {
      if (one.message == TVM_INSERTITEMW || one.message == TVM_SETITEMW) {
        images.insert(images.end(), {one.treeItem.iImage, one.treeItem.iSelectedImage});
      } else if (one.message == LVM_INSERTITEMW || one.message == LVM_SETITEMW) {
        images.push_back(one.item.iImage);
      }
    }
    return images;
  }

  FakeIcons icons;
  QVLTreeViewItem record;
};

// Of a long name the end is asked for, so that it keeps its type, and it starts with a whole
// character.
TEST_F(ShellIcons, NamesAreAskedForAsTypeAndLengthSay) {
  const Text dir = TEXT("C:\\") + Repeat(200) + TEXT("\\");
  const Text deep = dir + dir + TEXT("short.txt");
  const struct {
    Text file, asked, askedForTypeOne;
  } rows[] = {
      {TEXT("C:\\dir\\file.txt"), TEXT("C:\\dir\\file.txt"), TEXT("file.txt")},
      {TEXT("C:/dir/file.txt"), TEXT("C:/dir/file.txt"), TEXT("file.txt")},
      {TEXT("\\dir/sub\\a.tar.gz"), TEXT("\\dir/sub\\a.tar.gz"), TEXT("a.tar.gz")},
      {TEXT("C:file.txt"), TEXT("C:file.txt"), TEXT("file.txt")},
      {TEXT("file.txt"), TEXT("file.txt"), TEXT("file.txt")},
      {TEXT("\\\\host\\share\\f"), TEXT("\\\\host\\share\\f"), TEXT("f")},
      {TEXT(".hidden"), TEXT(".hidden"), TEXT(".hidden")},
      {TEXT("C:\\d.ir\\file"), TEXT("C:\\d.ir\\file"), TEXT("file")},
      {TEXT("C:\\dir\\"), TEXT("C:\\dir\\"), TEXT("")},
      {TEXT("C:\\dir\\file."), TEXT("C:\\dir\\file."), TEXT("file.")},
      {TEXT("C:"), TEXT("C:"), TEXT("")},
      {TEXT(""), TEXT(""), TEXT("")},
      {Repeat(255) + TEXT(".txt"), Repeat(255) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {Repeat(256) + TEXT(".txt"), Repeat(255) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {Repeat(300), Repeat(LONGEST), Repeat(LONGEST)},
      {TEXT("a.") + Repeat(258), TEXT(".") + Repeat(258), TEXT(".") + Repeat(258)},
      {TEXT(".d\\") + Repeat(300), Repeat(LONGEST), Repeat(LONGEST)},
      {deep, deep.substr(deep.size() - LONGEST), TEXT("short.txt")},
      {TEXT("a") + PAIR + Repeat(257), PAIR + Repeat(257), PAIR + Repeat(257)},
      {PAIR + Repeat(256) + TEXT(".c"), Repeat(256) + TEXT(".c"), Repeat(256) + TEXT(".c")},
      {FIRST_PAIR + Repeat(258), Repeat(258), Repeat(258)},
      {TEXT("a") + FULL_WIDTH + Repeat(258), FULL_WIDTH + Repeat(258), FULL_WIDTH + Repeat(258)},
  };
  for (const std::uint32_t style : VIEWS) {
    Open(style);
    for (const auto& row : rows) {
      for (const int type : TYPES) {
        const ItemHandle item = InsertFile(row.file, type);
        EXPECT_NE(item, -1);
        EXPECT_EQ(TakeNames(), Texts{type == 1 ? row.askedForTypeOne : row.asked}) << type;
        EXPECT_TRUE(view->UpdateItem(&record, item));
        EXPECT_EQ(TakeNames(), Texts{row.file}) << "an update asks for the whole name";
      }
    }
  }
}

TEST_F(ShellIcons, ExtensionThatIsTooLongGivesTheFirstImageUnasked) {
  Open();
  icons.index = 2;
  for (const int type : TYPES) {
    EXPECT_EQ(ImagesOf(TEXT("a.") + Repeat(LONGEST), type), (Images{0, 0, 2, 2}));
    EXPECT_EQ(TakeNames().size(), 1u) << "the update asks for the whole name";
  }
}

TEST_F(ShellIcons, ImageIsTheShellsInATreeWithinTheCountOfItsList) {
  const std::pair<int, int> rows[] = {{0, 0}, {2, 2}, {3, 3}, {4, 3}, {1000, 3}};
  for (const std::uint32_t style : VIEWS) {
    icons.refuses = false;
    Open(style);
    for (const auto& [index, imageInTree] : rows) {
      icons.index = index;
      EXPECT_EQ(ImagesOf(TEXT("a")), style ? Images(2, index) : Images(4, imageInTree)) << index;
    }
    icons.refuses = true;
    EXPECT_EQ(ImagesOf(TEXT("a")), Images(style ? 2 : 4, 0));
  }
}

// The host's list shows from then on, but items go on getting the shell's numbers.
TEST_F(ShellIcons, HostsImagesDoNotEndSystemIcons) {
  Open();
  EXPECT_TRUE(view->SetImageList(nullptr));
  icons.index = 1;
  EXPECT_EQ(ImagesOf(TEXT("a")), Images(4, 1));
  view->Destroy();
  CreateView();
  icons.refuses = true;
  {
    const SentMessages sent;
    EXPECT_FALSE(view->UseSystemImageList());
    EXPECT_EQ(sent.Of(TVM_SETIMAGELIST).size(), 0u);
  }
  TakeNames();
  EXPECT_EQ(ImagesOf(TEXT("a")), Images(4, 77)) << "a new view starts without";
  EXPECT_EQ(TakeNames(), Texts());
}

}  // namespace
