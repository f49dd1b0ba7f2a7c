// What the library does when memory ends. The operators stand in for those of the whole process.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "qvl.h"
#include "support/host_window.h"

namespace {

using Text = std::basic_string<WCHAR>;

// Allocations that still succeed; negative for all.
int allocationsLeft = -1;

void* Allocate(std::size_t size) {
  if (allocationsLeft == 0) return nullptr;
  if (allocationsLeft > 0) --allocationsLeft;
  return std::malloc(size ? size : 1);
}

// Lets memory end after so many allocations, for the life of the object.
class MemoryEnds {
 public:
  explicit MemoryEnds(int after = 0) { allocationsLeft = after; }
  ~MemoryEnds() { allocationsLeft = -1; }
  MemoryEnds(const MemoryEnds&) = delete;
  MemoryEnds& operator=(const MemoryEnds&) = delete;
};

}  // namespace

void* operator new(std::size_t size) {
  void* block = Allocate(size);
  if (!block) throw std::bad_alloc();
  return block;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace {

TEST(MemoryOfARecord, TextThatCannotBeCopiedEmptiesItsField) {
  const Text longText(1000, TEXT('x'));
  QVLTreeViewItem item;
  item.SetItemName(TEXT("short"));
  item.SetFileName(longText.c_str());
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
