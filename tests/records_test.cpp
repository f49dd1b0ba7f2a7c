// The records' fields and texts, and the order of the virtual operations.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "qvl.h"

namespace {

using Text = std::basic_string<WCHAR>;
using Item = QVLTreeViewItem;
using Ext = QVLTreeViewStyleExt;

// A number or flag of a record: its value in a new record and another one.
template <class Record>
struct Field {
  std::function<void(Record&, std::int64_t)> set;
  std::function<std::int64_t(const Record&)> get;
  std::int64_t start;
  std::int64_t other;
};

// Changes each field while the others have their first value, and while they have the other one.
template <class Record>
void ExpectIndependent(const std::vector<Field<Record>>& fields) {
  for (const bool changed : {false, true}) {
    for (const auto& field : fields) {
      Record record;
      for (const auto& each : fields) EXPECT_EQ(each.get(record), each.start);
      for (const auto& each : fields) each.set(record, changed ? each.other : each.start);
      for (const std::int64_t value : {field.other, field.other, field.start, field.start}) {
        field.set(record, value);
        for (const auto& each : fields) {
          const bool same = &each == &field;
          EXPECT_EQ(each.get(record), same ? value : changed ? each.other : each.start);
        }
      }
    }
  }
}

TEST(Records, FieldsAreIndependent) {
  ExpectIndependent<Item>({{&Item::SetType, &Item::GetType, 0, 1},
                           {&Item::SetImageIndex, &Item::GetImageIndex, -1, -2},
                           {&Item::SetStateIndex, &Item::GetStateIndex, -1, INT32_MAX},
                           {&Item::SetSubItem, &Item::GetSubItem, 0, INT32_MIN},
                           {&Item::SetIndentOffset, &Item::GetIndentOffset, 0, 3},
                           {&Item::SetClientPtr, &Item::GetClientPtr, 0, INT64_MAX},
                           {&Item::SetSelected, &Item::IsSelected, 0, 1},
                           {&Item::SetChecked, &Item::IsChecked, 0, 1},
                           {&Item::SetCut, &Item::IsCut, 0, 1},
                           {&Item::SetBold, &Item::IsBold, 0, 1}});
  ExpectIndependent<Ext>({{&Ext::SetStyle, &Ext::GetStyle, 0, 0x80000001},
                          {&Ext::SetStyleEx, &Ext::GetStyleEx, 0, 0xFFFFFFFF},
                          {&Ext::SetStyleExCtrl, &Ext::GetStyleExCtrl, 0, 0x12345678}});
}

TEST(Records, TextsAreCopiedUpToTheirNull) {
  const Text longText(100000, TEXT('x'));
  Item item;
  const auto expectRules = [&](auto set, auto get) {
    const auto setAndGet = [&](const WCHAR* text) { return (item.*set)(text), (item.*get)(); };
    EXPECT_EQ((item.*get)(), Text());
    WCHAR source[] = TEXT("name\0behind");
    setAndGet(source);
    source[0] = TEXT('N');
    EXPECT_EQ((item.*get)(), Text(TEXT("name")));
    // A host may set a text to itself or to a part of itself.
    EXPECT_EQ(setAndGet((item.*get)()), Text(TEXT("name")));
    EXPECT_EQ(setAndGet((item.*get)() + 2), Text(TEXT("me")));
    for (const WCHAR* empty : {static_cast<const WCHAR*>(nullptr), TEXT("")}) {
      EXPECT_EQ(setAndGet(longText.c_str()), longText);
      EXPECT_EQ(setAndGet((item.*get)() + 50000), longText.substr(50000));
      EXPECT_EQ(setAndGet(empty), Text());
    }
    setAndGet(TEXT("kept while the other text changes"));
  };
  expectRules(&Item::SetItemName, &Item::GetItemName);
  expectRules(&Item::SetFileName, &Item::GetFileName);
  EXPECT_EQ(item.GetItemName(), Text(item.GetFileName()));
}

// A host may delete a record that it derives through its base, but not a client.
static_assert(std::has_virtual_destructor_v<Item> && std::has_virtual_destructor_v<Ext>);
static_assert(!std::has_virtual_destructor_v<IQVLTreeViewClient>);

// The place of a virtual operation in its class's table, from 0. Both builds' compilers write such
// a pointer as the operation's distance from the start of the table, plus one.
template <class Member>
std::size_t VirtualPlace(Member member) {
  static_assert(sizeof member == 2 * sizeof(void*));
  std::uintptr_t distance = 0;
  std::memcpy(&distance, &member, sizeof distance);
  return (distance - 1) / sizeof(void*);
}

template <class... Members>
void ExpectPlacesFrom(std::size_t place, Members... members) {
  for (const std::size_t found : {VirtualPlace(members)...}) EXPECT_EQ(found, place++);
}

// In the records the two entries of the destructor come first.
TEST(Contract, OperationsKeepTheirOrder) {
  using V = IQVLTreeView;
  using C = IQVLTreeViewClient;
  ExpectPlacesFrom(
      0, &V::Create, &V::Destroy, &V::GetViewType, &V::SetImageList, &V::UseSystemImageList,
      &V::SetStateImageList, &V::SetBkColor, &V::SetTextColor, &V::SetMultiSelect,
      &V::GetMultiSelect, &V::SetClient, &V::GetControlWindow, &V::Move, &V::DeleteAllItems,
      &V::Hide, &V::Show, &V::Redraw, &V::GetScrollPosition, &V::SetScrollPosition,
      &V::SetToolTipWidth, &V::SetToolTipDelay, &V::InsertItem, &V::UpdateItem, &V::DeleteItem,
      &V::GetItems, &V::GetParentItem, &V::GetFirstChildItem, &V::GetNextSiblingItem,
      &V::ExpandItem, &V::IsItemExpanded, &V::ExpandAll, &V::CollapseAll, &V::EnsureVisible,
      &V::HitTest, &V::GetItemClientPtr, &V::GetSelectedCount, &V::GetSelectedItem,
      &V::SetItemSelected, &V::IsItemSelected, &V::SelectAll, &V::ClearSelection,
      &V::InvertSelection, &V::GetCheckedCount, &V::GetCheckedItem, &V::SetItemChecked,
      &V::IsItemChecked, &V::CheckAll, &V::UncheckAll, &V::ShowContextMenu);
  ExpectPlacesFrom(0, &C::OnContextMenu, &C::OnGetInfoTip, &C::OnBeginDrag, &C::OnCreateColumns,
                   &C::OnShellContextMenu, &C::OnLabelEdit, &C::OnBeginSelectionChange,
                   &C::OnItemSelectionChanged, &C::OnEndSelectionChange, &C::OnColumnClick,
                   &C::OnItemExpanded);
  ExpectPlacesFrom(2, &Item::SetType, &Item::GetType, &Item::GetItemName, &Item::SetItemName,
                   &Item::GetFileName, &Item::SetFileName, &Item::SetSelected, &Item::IsSelected,
                   &Item::SetChecked, &Item::IsChecked, &Item::SetCut, &Item::IsCut,
                   &Item::SetImageIndex, &Item::GetImageIndex, &Item::SetStateIndex,
                   &Item::GetStateIndex, &Item::GetClientPtr, &Item::SetClientPtr, &Item::SetBold,
                   &Item::IsBold, &Item::GetSubItem, &Item::SetSubItem, &Item::GetIndentOffset,
                   &Item::SetIndentOffset);
  ExpectPlacesFrom(2, &Ext::SetStyle, &Ext::GetStyle, &Ext::SetStyleEx, &Ext::GetStyleEx,
                   &Ext::SetStyleExCtrl, &Ext::GetStyleExCtrl);
}

}  // namespace
