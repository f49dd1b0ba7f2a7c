// What the library does when memory ends. Only the library's own allocations fail.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"

namespace {

using Text = std::basic_string<WCHAR>;

// Lets the library's memory end after so many allocations, for the life of the object.
class MemoryEnds {
 public:
  explicit MemoryEnds(int after = 0) { allocationsLeft = after; }

 private:
  static inline int allocationsLeft = 0;

  // A negative number never runs out.
  static bool Ended() {
    if (allocationsLeft <= 0) return allocationsLeft == 0;
    --allocationsLeft;
    return false;
  }
  static void* New(std::size_t size) {
    if (Ended()) throw std::bad_alloc();
    return ::operator new(size);
  }
  static void* NewOrNull(std::size_t size, const std::nothrow_t& tag) {
    return Ended() ? nullptr : ::operator new(size, tag);
  }

  ImportPatch news{"_Znwm", &New};
  ImportPatch quietNews{"_ZnwmRKSt9nothrow_t", &NewOrNull};
};

TEST(MemoryOfARecord, TextThatCannotBeCopiedEmptiesItsField) {
  const Text longText(1000, TEXT('x'));
  QVLTreeViewItem item;
  item.SetItemName(TEXT("short"));
  {
    MemoryEnds now;
    item.SetItemName(longText.c_str());
    item.SetFileName(longText.c_str());
  }
  EXPECT_EQ(item.GetItemName(), Text());
  EXPECT_EQ(item.GetFileName(), Text());
  item.SetItemName(longText.c_str());
  EXPECT_EQ(item.GetItemName(), longText);
}

TEST(MemoryOfAView, ViewThatCannotBeMadeIsNull) {
  IQVLTreeView* view = nullptr;
  {
    MemoryEnds now;
    view = GetIQVLTreeView();
  }
  EXPECT_EQ(view, nullptr);
}

class Memory : public HostTest {
 protected:
  // What GetItems leaves in the list if memory ends after its first `allocations`.
  ItemHandleList ItemsWithin(int allocations) {
    ItemHandleList items;
    std::int64_t length = -1;
    {
      MemoryEnds soon(allocations);
      length = view->GetItems(&items, true);
    }
    EXPECT_EQ(length, static_cast<std::int64_t>(items.size()));
    return items;
  }
};

TEST_F(Memory, CreateWithoutMemoryLeavesNothing) {
  for (const std::uint32_t style : {std::uint32_t{0}, QVLS_LISTVIEW}) {
    ASSERT_NE(CreateView(), nullptr);
    view->Destroy();
    HWND control = nullptr;
    {
      MemoryEnds now;
      control = view->Create(host, CONTROL_ID, 0, 0, 10, 10, style, nullptr);
    }
    EXPECT_EQ(control, nullptr);
    EXPECT_EQ(view->GetViewType(), -1);
    EXPECT_EQ(view->GetControlWindow(), nullptr);
    EXPECT_EQ(Insert(TEXT("a")), 0);
    client.Take();
    ASSERT_NE(CreateView(style), nullptr);
    view->SetItemSelected(Insert(TEXT("b")), true);
    EXPECT_EQ(client.Take().back(), "End") << "the client is still there";
  }
}

TEST_F(Memory, ListThatCannotGrowKeepsWhatItHas) {
  for (const std::uint32_t style : {std::uint32_t{0}, QVLS_LISTVIEW}) {
    ASSERT_NE(CreateView(style), nullptr);
    ItemHandleList all;
    for (int i = 0; i < 20; ++i) all.push_back(Insert(TEXT("a")));
    EXPECT_EQ(ItemsWithin(-1), all);
    EXPECT_EQ(ItemsWithin(0), ItemHandleList());
    const ItemHandleList some = ItemsWithin(3);
    EXPECT_LT(some.size(), all.size());
    EXPECT_EQ(some, ItemHandleList(all.begin(), all.begin() + static_cast<int>(some.size())));
    EXPECT_FALSE(some.empty());
  }
}

}  // namespace
