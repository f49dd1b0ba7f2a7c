// Shell icons of items: what the shell is asked, what becomes of its answer, and the list of icons
// that all trees share.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/fake_icons.h"
#include "support/host_window.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr int TYPES[] = {0, 1, 2, -1};
constexpr std::uint32_t VIEWS[] = {0, QVLS_LISTVIEW};

// What the shell takes of a name at most.
constexpr std::size_t LONGEST = 259;

// Two characters for the platform, one for the reader.
const Text PAIR = {static_cast<WCHAR>(0xD83D), static_cast<WCHAR>(0xDE00)};

Text Repeat(std::size_t count, WCHAR character = TEXT('x')) { return Text(count, character); }

Text NameAndExtension(const Text& path) {
  WCHAR name[300] = {};
  WCHAR extension[300] = {};
  _wsplitpath(path.c_str(), nullptr, nullptr, name, extension);
  return Text(name) + extension;
}

class ShellIcons : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    for (std::uint32_t seed = 1; seed <= 3; ++seed) icons.Add(seed);
  }

  void Open(std::uint32_t style = 0) {
    control = CreateView(style);
    ASSERT_NE(control, nullptr);
    ASSERT_TRUE(view->UseSystemImageList());
    icons.questions.clear();
  }

  ItemHandle InsertFile(const Text& file, int type = 0) {
    QVLTreeViewItem record;
    record.SetType(type);
    record.SetFileName(file.c_str());
    record.SetImageIndex(77);
    return view->InsertItem(&record, -1);
  }

  bool UpdateFile(ItemHandle item, const Text& file, int type = 0) {
    QVLTreeViewItem record;
    record.SetType(type);
    record.SetFileName(file.c_str());
    record.SetImageIndex(77);
    return view->UpdateItem(&record, item);
  }

  // The one name that the shell was asked for since the last call.
  Text TakeName() {
    EXPECT_EQ(icons.questions.size(), 1u);
    const Text name = icons.questions.empty() ? Text() : icons.questions[0].name;
    icons.questions.clear();
    return name;
  }

  HIMAGELIST ListOf(HWND tree) const {
    return reinterpret_cast<HIMAGELIST>(SendMessageW(tree, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
  }

  FakeIcons icons;
  HWND control = nullptr;
};

TEST_F(ShellIcons, QuestionsAreAskedByNameAlone) {
  for (const std::uint32_t style : VIEWS) {
    ASSERT_NE(CreateView(style), nullptr);
    EXPECT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(icons.questions.at(0).name, TEXT("*.exe"));
    EXPECT_TRUE(UpdateFile(InsertFile(TEXT("C:\\some\\file.txt")), TEXT("other.txt")));
    ASSERT_EQ(icons.questions.size(), 3u);
    for (const IconQuestion& question : icons.questions) {
      EXPECT_EQ(question.attributes, 128u);
      EXPECT_EQ(question.size, sizeof(SHFILEINFOW));
      EXPECT_EQ(question.flags, 0x4011u);
    }
    icons.questions.clear();
  }
}

TEST_F(ShellIcons, TypeOneIsAskedForByBaseNameAndExtension) {
  const Text paths[] = {
      TEXT("C:\\dir\\file.txt"),
      TEXT("C:/dir/file.txt"),
      TEXT("C:\\dir/sub\\file.tar.gz"),
      TEXT("C:file.txt"),
      TEXT("file.txt"),
      TEXT("\\file.txt"),
      TEXT("\\\\host\\share\\f"),
      TEXT("file"),
      TEXT(".hidden"),
      TEXT("C:\\d.ir\\file"),
      TEXT("C:\\dir\\"),
      TEXT("C:\\dir\\file."),
      TEXT("..\\..\\a.b"),
      TEXT("C:\\a\\..x"),
      TEXT("C:"),
      TEXT(""),
      TEXT("*.exe"),
      TEXT("a b\\c d.e f"),
  };
  for (const std::uint32_t style : VIEWS) {
    Open(style);
    for (const Text& path : paths) {
      for (const int type : TYPES) {
        EXPECT_NE(InsertFile(path, type), -1);
        EXPECT_EQ(TakeName(), type == 1 ? NameAndExtension(path) : path) << type;
      }
    }
  }
}

TEST_F(ShellIcons, UpdateAsksForTheWholeNameWhateverTheType) {
  for (const std::uint32_t style : VIEWS) {
    Open(style);
    const ItemHandle item = InsertFile(TEXT("a.txt"));
    TakeName();
    for (const Text& path : {Text(TEXT("C:\\dir\\file.txt")), Repeat(1000)}) {
      for (const int type : TYPES) {
        EXPECT_TRUE(UpdateFile(item, path, type));
        EXPECT_EQ(TakeName(), path) << type;
      }
    }
  }
}

// The end of a long name is asked for, so that it keeps its type.
TEST_F(ShellIcons, LongNamesKeepTheirExtension) {
  struct Row {
    Text file;
    Text asked;
  };
  const Text dir = TEXT("C:\\") + Repeat(200, TEXT('d')) + TEXT("\\");
  const Row rows[] = {
      {Repeat(255) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {Repeat(256) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {Repeat(5000) + TEXT(".txt"), Repeat(255) + TEXT(".txt")},
      {Repeat(300), Repeat(LONGEST)},
      {TEXT("a.") + Repeat(258), TEXT(".") + Repeat(258)},
      {dir + Repeat(300) + TEXT(".c"), Repeat(257) + TEXT(".c")},
      {Repeat(10) + TEXT(".d\\") + Repeat(300), Repeat(LONGEST)},
  };
  for (const std::uint32_t style : VIEWS) {
    Open(style);
    for (const Row& row : rows) {
      for (const int type : TYPES) {
        EXPECT_NE(InsertFile(row.file, type), -1);
        EXPECT_EQ(TakeName(), row.asked);
      }
    }
    const Text deep = dir + dir + TEXT("short.txt");
    InsertFile(deep, 1);
    EXPECT_EQ(TakeName(), TEXT("short.txt"));
    InsertFile(deep);
    EXPECT_EQ(TakeName(), deep.substr(deep.size() - LONGEST));
  }
}

TEST_F(ShellIcons, LongNamesAreCutBetweenCharacters) {
  Open();
  InsertFile(PAIR + Repeat(254) + TEXT(".txt"));
  EXPECT_EQ(TakeName(), Repeat(254) + TEXT(".txt")) << "half of a pair is left out";
  InsertFile(TEXT("x") + PAIR + Repeat(253) + TEXT(".txt"));
  EXPECT_EQ(TakeName(), PAIR + Repeat(253) + TEXT(".txt"));
}

TEST_F(ShellIcons, ExtensionThatIsTooLongGivesTheFirstImage) {
  Open();
  icons.index = 2;
  for (const int type : TYPES) {
    SentMessages sent;
    EXPECT_NE(InsertFile(TEXT("a.") + Repeat(LONGEST), type), -1);
    EXPECT_TRUE(icons.questions.empty());
    EXPECT_EQ(sent.Of(TVM_INSERTITEMW).at(0).treeItem.iImage, 0);
  }
}

TEST_F(ShellIcons, ImageIsTheShellsWithinTheCountOfItsList) {
  Open();
  const ItemHandle item = InsertFile(TEXT("a"));
  struct Row {
    int index;
    int image;
  };
  for (const Row row : {Row{0, 0}, Row{2, 2}, Row{3, 3}, Row{4, 3}, Row{1000, 3}}) {
    icons.index = row.index;
    SentMessages sent;
    InsertFile(TEXT("a"));
    UpdateFile(item, TEXT("a"));
    for (const UINT message : {TVM_INSERTITEMW, TVM_SETITEMW}) {
      EXPECT_EQ(sent.Of(message).at(0).treeItem.iImage, row.image) << row.index;
      EXPECT_EQ(sent.Of(message).at(0).treeItem.iSelectedImage, row.image) << row.index;
    }
  }
}

TEST_F(ShellIcons, ItemThatTheShellRefusesGetsTheFirstImage) {
  Open();
  icons.index = 2;
  icons.refuses = true;
  icons.Add(9);
  const int before = ImageList_GetImageCount(ListOf(control));
  SentMessages sent;
  const ItemHandle item = InsertFile(TEXT("a"));
  EXPECT_NE(item, -1);
  EXPECT_TRUE(UpdateFile(item, TEXT("a")));
  EXPECT_EQ(sent.Of(TVM_INSERTITEMW).at(0).treeItem.iImage, 0);
  EXPECT_EQ(sent.Of(TVM_SETITEMW).at(0).treeItem.iImage, 0);
  EXPECT_EQ(ImageList_GetImageCount(ListOf(control)), before) << "there was nothing to follow";
}

TEST_F(ShellIcons, RowThatTheShellRefusesGetsTheFirstImage) {
  Open(QVLS_LISTVIEW);
  icons.index = 2;
  icons.refuses = true;
  SentMessages sent;
  UpdateFile(InsertFile(TEXT("a")), TEXT("a"));
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW).at(0).item.iImage, 0);
  EXPECT_EQ(sent.Of(LVM_SETITEMW).at(0).item.iImage, 0);
}

TEST_F(ShellIcons, ViewWithoutAShellKeepsItsImages) {
  control = CreateView();
  icons.refuses = true;
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_EQ(ListOf(control), nullptr);
  icons.questions.clear();
  SentMessages sent;
  InsertFile(TEXT("a"));
  EXPECT_EQ(sent.Of(TVM_INSERTITEMW).at(0).treeItem.iImage, 77);
  EXPECT_TRUE(icons.questions.empty());
}

// The host's list shows from then on, but items go on getting the shell's numbers.
TEST_F(ShellIcons, HostsImagesDoNotEndSystemIcons) {
  Open();
  EXPECT_TRUE(view->SetImageList(nullptr));
  icons.index = 1;
  SentMessages sent;
  InsertFile(TEXT("a"));
  EXPECT_EQ(sent.Of(TVM_INSERTITEMW).at(0).treeItem.iImage, 1);
  view->Destroy();
  control = CreateView();
  sent.Forget();
  InsertFile(TEXT("a"));
  EXPECT_EQ(sent.Of(TVM_INSERTITEMW).at(0).treeItem.iImage, 77) << "a new view starts without";
}

TEST_F(ShellIcons, SharedListHoldsTheShellsImages) {
  Open();
  const HIMAGELIST shared = ListOf(control);
  ASSERT_NE(shared, nullptr);
  EXPECT_NE(shared, icons.list);
  EXPECT_TRUE(SameImages(icons.list, shared));
  for (std::uint32_t seed = 10; seed < 13; ++seed) {
    icons.Add(seed);
    EXPECT_FALSE(SameImages(icons.list, shared)) << "the next item is what brings it into step";
    const ItemHandle item = InsertFile(TEXT("a"));
    EXPECT_TRUE(SameImages(icons.list, shared));
    icons.Add(seed + 100);
    UpdateFile(item, TEXT("a"));
    EXPECT_TRUE(SameImages(icons.list, shared));
  }
  ImageList_Remove(icons.list, 0);
  InsertFile(TEXT("a"));
  EXPECT_TRUE(SameImages(icons.list, shared)) << "also a list that has become shorter";
  ImageList_Remove(icons.list, -1);
  InsertFile(TEXT("a"));
  EXPECT_EQ(ImageList_GetImageCount(shared), 0);
}

TEST_F(ShellIcons, ViewsShareTheList) {
  Open();
  IQVLTreeView* other = GetIQVLTreeView();
  const HWND otherControl = other->Create(host, 7, 0, 0, 50, 50, 0, nullptr);
  ASSERT_TRUE(other->UseSystemImageList());
  const HIMAGELIST shared = ListOf(control);
  EXPECT_EQ(ListOf(otherControl), shared);
  EXPECT_TRUE(SameImages(icons.list, shared));
  icons.Add(10);
  InsertFile(TEXT("a"));
  EXPECT_TRUE(SameImages(icons.list, shared));
  QVLTreeViewItem record;
  other->InsertItem(&record, -1);
  EXPECT_TRUE(SameImages(icons.list, shared));
  ReleaseIQVLTreeView(other);
  view->Destroy();
  EXPECT_TRUE(SameImages(icons.list, shared)) << "the list outlives the views";
  Open();
  EXPECT_EQ(ListOf(control), shared);
  EXPECT_TRUE(SameImages(icons.list, shared));
}

TEST_F(ShellIcons, SharedListHasTheColourSetLast) {
  Open();
  const HIMAGELIST shared = ListOf(control);
  EXPECT_EQ(ImageList_GetBkColor(shared), 0u) << "a view without a colour brings 0";
  view->SetBkColor(RGB(1, 2, 3));
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(1, 2, 3));
  IQVLTreeView* other = GetIQVLTreeView();
  other->Create(host, 7, 0, 0, 50, 50, 0, nullptr);
  other->SetBkColor(RGB(4, 5, 6));
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(1, 2, 3)) << "the other view has no system icons";
  other->UseSystemImageList();
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(4, 5, 6));
  view->SetBkColor(RGB(7, 8, 9));
  EXPECT_EQ(ImageList_GetBkColor(shared), RGB(7, 8, 9));
  ReleaseIQVLTreeView(other);
}

}  // namespace
