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
const Text FULL_WIDTH = {static_cast<WCHAR>(0xFF21)};

Text Repeat(std::size_t count) { return Text(count, TEXT('x')); }

// The normal and the selected image of a tree's items and the image of a list's rows, as written.
Images WrittenImages(const SentMessages& sent) {
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

class ShellIcons : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    icons.Add(3);
  }

  void Open(std::uint32_t style = 0) {
    ASSERT_NE(CreateView(style), nullptr);
    icons.asked.clear();
    ASSERT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(icons.asked, Texts{TEXT("*.exe")}) << "any type tells the shell's list";
    icons.asked.clear();
  }

  ItemHandle InsertFile(const Text& file, int type = 0) {
    Fill(file, type);
    return view->InsertItem(&record, -1);
  }

  bool UpdateFile(ItemHandle item, const Text& file, int type = 0) {
    Fill(file, type);
    return view->UpdateItem(&record, item);
  }

  // The one name that the shell was asked for since the last call.
  Text TakeName() {
    EXPECT_EQ(icons.asked.size(), 1u);
    Text name = icons.asked.empty() ? Text() : icons.asked[0];
    icons.asked.clear();
    return name;
  }

  FakeIcons icons;

 private:
  void Fill(const Text& file, int type) {
    record.SetType(type);
    record.SetFileName(file.c_str());
    record.SetImageIndex(77);
  }

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
      {PAIR + Repeat(254) + TEXT(".c"), PAIR + Repeat(254) + TEXT(".c"),
       PAIR + Repeat(254) + TEXT(".c")},
      {PAIR + Repeat(256) + TEXT(".c"), Repeat(256) + TEXT(".c"), Repeat(256) + TEXT(".c")},
      {TEXT("a") + FULL_WIDTH + Repeat(258), FULL_WIDTH + Repeat(258), FULL_WIDTH + Repeat(258)},
  };
  for (const std::uint32_t style : VIEWS) {
    Open(style);
    for (const auto& row : rows) {
      for (const int type : TYPES) {
        const ItemHandle item = InsertFile(row.file, type);
        EXPECT_NE(item, -1);
        EXPECT_EQ(TakeName(), type == 1 ? row.askedForTypeOne : row.asked) << type;
        EXPECT_TRUE(UpdateFile(item, row.file, type));
        EXPECT_EQ(TakeName(), row.file) << "an update asks for the whole name";
      }
    }
  }
}

TEST_F(ShellIcons, ExtensionThatIsTooLongGivesTheFirstImageUnasked) {
  Open();
  icons.index = 2;
  for (const int type : TYPES) {
    const SentMessages sent;
    EXPECT_NE(InsertFile(TEXT("a.") + Repeat(LONGEST), type), -1);
    EXPECT_EQ(WrittenImages(sent), (Images{0, 0}));
  }
  EXPECT_EQ(icons.asked, Texts());
}

TEST_F(ShellIcons, ImageIsTheShellsWithinTheCountOfItsList) {
  Open();
  const std::pair<int, int> rows[] = {{0, 0}, {2, 2}, {3, 3}, {4, 3}, {1000, 3}};
  for (const auto& [index, image] : rows) {
    icons.index = index;
    const SentMessages sent;
    EXPECT_TRUE(UpdateFile(InsertFile(TEXT("a")), TEXT("a")));
    EXPECT_EQ(WrittenImages(sent), Images(4, image)) << index;
  }
}

TEST_F(ShellIcons, ItemThatTheShellRefusesGetsTheFirstImage) {
  for (const std::uint32_t style : VIEWS) {
    icons.refuses = false;
    Open(style);
    icons.index = 2;
    icons.refuses = true;
    const SentMessages sent;
    EXPECT_TRUE(UpdateFile(InsertFile(TEXT("a")), TEXT("a")));
    EXPECT_EQ(WrittenImages(sent), Images(style ? 2 : 4, 0));
  }
}

// The host's list shows from then on, but items go on getting the shell's numbers.
TEST_F(ShellIcons, HostsImagesDoNotEndSystemIcons) {
  Open();
  EXPECT_TRUE(view->SetImageList(nullptr));
  icons.index = 1;
  SentMessages sent;
  InsertFile(TEXT("a"));
  EXPECT_EQ(WrittenImages(sent), (Images{1, 1}));
  view->Destroy();
  CreateView();
  icons.refuses = true;
  EXPECT_FALSE(view->UseSystemImageList());
  icons.asked.clear();
  sent.Forget();
  InsertFile(TEXT("a"));
  EXPECT_EQ(WrittenImages(sent), (Images{77, 77})) << "a new view starts without";
  EXPECT_EQ(sent.Of(TVM_SETIMAGELIST).size(), 0u);
  EXPECT_EQ(icons.asked, Texts());
}

}  // namespace
