#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>

#include "qvl.h"

namespace {

using Text = std::basic_string<WCHAR>;

// The two texts of a record, which follow the same rules.
constexpr struct TextField {
  const char* name;
  void (QVLTreeViewItem::*set)(const WCHAR*) noexcept;
  const WCHAR* (QVLTreeViewItem::*get)() const noexcept;
} TEXT_FIELDS[] = {
    {"ItemName", &QVLTreeViewItem::SetItemName, &QVLTreeViewItem::GetItemName},
    {"FileName", &QVLTreeViewItem::SetFileName, &QVLTreeViewItem::GetFileName},
};

constexpr struct Flag {
  const char* name;
  void (QVLTreeViewItem::*set)(bool) noexcept;
  bool (QVLTreeViewItem::*get)() const noexcept;
} FLAGS[] = {
    {"Selected", &QVLTreeViewItem::SetSelected, &QVLTreeViewItem::IsSelected},
    {"Checked", &QVLTreeViewItem::SetChecked, &QVLTreeViewItem::IsChecked},
    {"Cut", &QVLTreeViewItem::SetCut, &QVLTreeViewItem::IsCut},
    {"Bold", &QVLTreeViewItem::SetBold, &QVLTreeViewItem::IsBold},
};

// Every number and flag of the record.
std::string Snapshot(const QVLTreeViewItem& item) {
  std::string text;
  for (const int number : {item.GetType(), item.GetImageIndex(), item.GetStateIndex(),
                           item.GetSubItem(), item.GetIndentOffset()}) {
    text += std::to_string(number) + " ";
  }
  for (const Flag& flag : FLAGS) text += (item.*flag.get)() ? '1' : '0';
  return text + " " + std::to_string(item.GetClientPtr());
}

TEST(Item, StartsWithItsDefaultsAndKeepsEachNumber) {
  QVLTreeViewItem item;
  EXPECT_EQ(Snapshot(item), "0 -1 -1 0 0 0000 0");
  item.SetType(1);
  item.SetImageIndex(-2);
  item.SetStateIndex(INT32_MAX);
  item.SetSubItem(INT32_MIN);
  item.SetIndentOffset(3);
  item.SetClientPtr(INT64_MAX);
  EXPECT_EQ(Snapshot(item), "1 -2 2147483647 -2147483648 3 0000 9223372036854775807");
}

TEST(Item, EachFlagIsAloneInItsBit) {
  for (const bool others : {false, true}) {
    for (const auto& field : FLAGS) {
      QVLTreeViewItem item;
      for (const auto& other : FLAGS) (item.*other.set)(others);
      for (const bool value : {true, true, false, false, true}) {
        (item.*field.set)(value);
        for (const auto& read : FLAGS) {
          const bool expected = read.name == field.name ? value : others;
          EXPECT_EQ((item.*read.get)(), expected) << field.name << " changed " << read.name;
        }
      }
    }
  }
}

TEST(Item, TextsAreCopiedUpToTheirEnd) {
  const Text longText(100000, TEXT('x'));
  QVLTreeViewItem item;
  for (const TextField& field : TEXT_FIELDS) {
    SCOPED_TRACE(field.name);
    EXPECT_EQ((item.*field.get)(), Text());
    WCHAR source[] = TEXT("name\0behind");
    (item.*field.set)(source);
    source[0] = TEXT('N');
    EXPECT_EQ((item.*field.get)(), Text(TEXT("name")));
    for (const WCHAR* empty : {static_cast<const WCHAR*>(nullptr), TEXT("")}) {
      (item.*field.set)(longText.c_str());
      EXPECT_EQ((item.*field.get)(), longText);
      (item.*field.set)(empty);
      ASSERT_NE((item.*field.get)(), nullptr);
      EXPECT_EQ((item.*field.get)(), Text());
    }
    (item.*field.set)(TEXT("a text is left in the first field while the second one changes"));
  }
  EXPECT_EQ(item.GetItemName(), Text(item.GetFileName()));
}

// A host may read a text and set a part of it.
TEST(Item, TextCanBeSetFromItself) {
  const Text longText = Text(50, TEXT('a')) + Text(50, TEXT('b'));
  for (const TextField& field : TEXT_FIELDS) {
    for (const Text& text : {Text(TEXT("ab")), longText}) {
      QVLTreeViewItem item;
      (item.*field.set)(text.c_str());
      (item.*field.set)((item.*field.get)());
      EXPECT_EQ((item.*field.get)(), text) << field.name;
      (item.*field.set)((item.*field.get)() + text.size() / 2);
      EXPECT_EQ((item.*field.get)(), text.substr(text.size() / 2)) << field.name;
    }
  }
}

TEST(StyleExt, StartsEmptyAndKeepsEachWord) {
  QVLTreeViewStyleExt style;
  EXPECT_EQ(style.GetStyle() | style.GetStyleEx() | style.GetStyleExCtrl(), 0u);
  style.SetStyle(0x80000001);
  style.SetStyleEx(0xFFFFFFFF);
  style.SetStyleExCtrl(0x12345678);
  EXPECT_EQ(style.GetStyle(), 0x80000001);
  EXPECT_EQ(style.GetStyleEx(), 0xFFFFFFFF);
  EXPECT_EQ(style.GetStyleExCtrl(), 0x12345678u);
}

// A host may derive from the records and free one through its base.
TEST(Records, EndThroughTheirBase) {
  static bool ended = false;
  struct Derived : QVLTreeViewItem {
    ~Derived() override { ended = true; }
  };
  QVLTreeViewItem* item = new Derived;
  item->SetItemName(TEXT("a text that is long enough to need memory of its own"));
  delete item;
  EXPECT_TRUE(ended);
  static_assert(std::has_virtual_destructor_v<QVLTreeViewStyleExt>);
  static_assert(!std::has_virtual_destructor_v<IQVLTreeViewClient>);
}

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
TEST(Contract, OperationsStandInTheirOrder) {
  using V = IQVLTreeView;
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
  using C = IQVLTreeViewClient;
  ExpectPlacesFrom(0, &C::OnContextMenu, &C::OnGetInfoTip, &C::OnBeginDrag, &C::OnCreateColumns,
                   &C::OnShellContextMenu, &C::OnLabelEdit, &C::OnBeginSelectionChange,
                   &C::OnItemSelectionChanged, &C::OnEndSelectionChange, &C::OnColumnClick,
                   &C::OnItemExpanded);
  using Item = QVLTreeViewItem;
  ExpectPlacesFrom(2, &Item::SetType, &Item::GetType, &Item::GetItemName, &Item::SetItemName,
                   &Item::GetFileName, &Item::SetFileName, &Item::SetSelected, &Item::IsSelected,
                   &Item::SetChecked, &Item::IsChecked, &Item::SetCut, &Item::IsCut,
                   &Item::SetImageIndex, &Item::GetImageIndex, &Item::SetStateIndex,
                   &Item::GetStateIndex, &Item::GetClientPtr, &Item::SetClientPtr, &Item::SetBold,
                   &Item::IsBold, &Item::GetSubItem, &Item::SetSubItem, &Item::GetIndentOffset,
                   &Item::SetIndentOffset);
  using Ext = QVLTreeViewStyleExt;
  ExpectPlacesFrom(2, &Ext::SetStyle, &Ext::GetStyle, &Ext::SetStyleEx, &Ext::GetStyleEx,
                   &Ext::SetStyleExCtrl, &Ext::GetStyleExCtrl);
}

}  // namespace
