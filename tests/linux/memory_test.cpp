// Results without memory. Only the library's own allocations fail.
#include "linux/failing_memory.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "qvl.h"
#include "support/host_window.h"

namespace {

class MemoryTest : public HostTest {};

TEST_F(MemoryTest, RecordTextWithoutMemoryIsEmpty) {
  QVLTreeViewItem item;
  item.SetItemName(TEXT("short"));
  const FailingMemory memory;
  item.SetItemName(std::basic_string<WCHAR>(1000, TEXT('x')).c_str());
  EXPECT_EQ(item.GetItemName(), std::basic_string<WCHAR>());
}

TEST_F(MemoryTest, NewViewWithoutMemoryIsNull) {
  const FailingMemory memory;
  EXPECT_EQ(GetIQVLTreeView(), nullptr);
}

TEST_F(MemoryTest, CreateWithoutMemoryKeepsTheClient) {
  for (const std::uint32_t style : {std::uint32_t{0}, QVLS_LISTVIEW}) {
    ASSERT_NE(CreateView(style), nullptr);
    {
      const FailingMemory memory;
      EXPECT_EQ(view->Create(host, kControlId, 0, 0, 10, 10, style, nullptr), nullptr);
    }
    EXPECT_EQ(view->GetViewType(), -1);
    EXPECT_EQ(Insert(TEXT("a")), 0);
    client.Take();
    ASSERT_NE(view->Create(host, kControlId, 0, 0, 10, 10, style, nullptr), nullptr);
    view->SetItemSelected(Insert(TEXT("b")), true);
    EXPECT_EQ(client.Take().back(), "End");
  }
}

TEST_F(MemoryTest, ListThatCannotGrowKeepsItsItems) {
  for (const std::uint32_t style : {std::uint32_t{0}, QVLS_LISTVIEW}) {
    ASSERT_NE(CreateView(style), nullptr);
    ItemHandleList all;
    for (int i = 0; i < 20; ++i) all.push_back(Insert(TEXT("a")));
    // The capacity doubles: the fifth item needs the fourth allocation.
    const std::ptrdiff_t kept[] = {0, 1, 2, 4};
    for (int number = 1; number <= 4; ++number) {
      const FailingMemory memory(number);
      ItemHandleList items;
      EXPECT_EQ(view->GetItems(&items, true), kept[number - 1]);
      EXPECT_EQ(items, ItemHandleList(all.begin(), all.begin() + kept[number - 1]));
    }
  }
}

}  // namespace
