// Shell icons of items: what the shell is asked, and the image that its answer gives.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "qvl.h"
#include "support/each_view.h"
#include "support/fake_icons.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;
using Texts = std::vector<Text>;
using Images = std::vector<int>;

constexpr int kTypes[] = {0, 1, 2, -1};
constexpr std::size_t kLongest = 259;  // characters that the shell takes

Text Repeat(std::size_t count) { return Text(count, TEXT('x')); }

class ShellIcons : public EachView {
 protected:
  void SetUp() override {
    EachView::SetUp();
    icons.Add(3);
    Open();
    icons.asked.clear();
    ASSERT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(TakeNames(), Texts{TEXT("*.exe")});
  }

  // The names of the questions since the last call.
  Texts TakeNames() { return std::exchange(icons.asked, {}); }

  ItemHandle InsertFile(const Text& file, int type) {
    record.SetType(type);
    record.SetFileName(file.c_str());
    record.SetImageIndex(77);
    return view->InsertItem(&record, -1);
  }

  // The images that an insertion and an update write, of a tree with the selected image.
  Images ImagesOf(const Text& file, int type = 0) {
    const SentMessages sent;
    EXPECT_TRUE(view->UpdateItem(&record, InsertFile(file, type)));
    Images images;
    for (const UINT message : {TVM_INSERTITEMW, TVM_SETITEMW, LVM_INSERTITEMW, LVM_SETITEMW}) {
      for (const SentMessage& one : sent.Of(message)) {
        images.push_back(one.item.iImage);
        if (!IsList()) images.push_back(one.treeItem.iSelectedImage);
      }
    }
    return images;
  }

  FakeIcons icons;
  QVLTreeViewItem record;
};

INSTANTIATE_TEST_SUITE_P(Views, ShellIcons, kEachView, ViewName);

// The question about a long name is its end, which has its type, and starts with a whole character.
TEST_P(ShellIcons, TypeAndLengthDecideTheQuestion) {
  const Text firstPair = {WCHAR(0xD800), WCHAR(0xDC00)};
  const Text lastPair = {WCHAR(0xDBFF), WCHAR(0xDFFF)};
  const Text noPair = {WCHAR(0xE000)};
  const Text dir = TEXT("C:\\") + Repeat(200) + TEXT("\\");
  const Text deep = dir + dir + TEXT("short.txt");
  const struct {
    Text file;
    Text ofTypeOne = file;
    Text ofOthers = file.size() > kLongest ? ofTypeOne : file;
  } rows[] = {
      {TEXT("C:\\d.ir\\file"), TEXT("file")},
      {TEXT("C:/dir/file."), TEXT("file.")},
      {TEXT("\\dir/sub\\a.tar.gz"), TEXT("a.tar.gz")},
      {TEXT("C:file.txt"), TEXT("file.txt")},
      {TEXT(".hidden")},
      {TEXT("C:\\dir\\"), TEXT("")},
      {TEXT("C:"), TEXT("")},
      {TEXT("")},
      {Repeat(255) + TEXT(".txt")},
      {Repeat(256) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {TEXT("a.") + Repeat(258), TEXT(".") + Repeat(258)},
      {TEXT(".d\\") + Repeat(300), Repeat(kLongest)},
      {deep, TEXT("short.txt"), deep.substr(deep.size() - kLongest)},
      {TEXT("a") + lastPair + Repeat(257), lastPair + Repeat(257)},
      {lastPair + Repeat(258), Repeat(258)},
      {firstPair + Repeat(258), Repeat(258)},
      {TEXT("a") + noPair + Repeat(258), noPair + Repeat(258)},
  };
  for (const auto& row : rows) {
    for (const int type : kTypes) {
      const ItemHandle item = InsertFile(row.file, type);
      EXPECT_EQ(TakeNames(), Texts{type == 1 ? row.ofTypeOne : row.ofOthers}) << type;
      EXPECT_TRUE(view->UpdateItem(&record, item));
      EXPECT_EQ(TakeNames(), Texts{row.file}) << "an update asks for the whole name";
    }
  }
}

TEST_P(ShellIcons, ImageIsTheShellsInATreeWithinTheCountOfItsList) {
  for (const auto& [index, imageInTree] : {std::pair{0, 0}, {2, 2}, {3, 3}, {4, 3}, {1000, 3}}) {
    icons.index = index;
    EXPECT_EQ(ImagesOf(TEXT("a")), IsList() ? Images(2, index) : Images(4, imageInTree)) << index;
  }
  TakeNames();
  icons.index = 2;
  for (const int type : kTypes) {
    EXPECT_EQ(ImagesOf(TEXT("a.") + Repeat(kLongest), type),
              IsList() ? (Images{0, 2}) : (Images{0, 0, 2, 2}));
    EXPECT_EQ(TakeNames().size(), 1u) << "only the update asks about a type that is too long";
  }
  EXPECT_TRUE(view->SetImageList(nullptr));
  EXPECT_EQ(ImagesOf(TEXT("a")), Images(TreeOrList(4u, 2u), 2)) << "another list ends nothing";
  icons.refuses = true;
  EXPECT_EQ(ImagesOf(TEXT("a")), Images(TreeOrList(4u, 2u), 0));

  view->Destroy();
  Open();
  TakeNames();
  {
    const SentMessages sent;
    EXPECT_FALSE(view->UseSystemImageList());
    EXPECT_EQ(sent.all.size(), 0u);
  }
  EXPECT_EQ(TakeNames().size(), 1u);
  EXPECT_EQ(ImagesOf(TEXT("a")), Images(TreeOrList(4u, 2u), 77)) << "a new view starts without";
  EXPECT_EQ(TakeNames(), Texts());
}

}  // namespace
