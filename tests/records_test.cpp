#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "qvl.h"
#include "support/virtual_place.h"

namespace {

using Text = std::basic_string<WCHAR>;

// The two texts of a record, which follow the same rules.
struct TextField {
  const char* name;
  void (QVLTreeViewItem::*set)(const WCHAR*) noexcept;
  const WCHAR* (QVLTreeViewItem::*get)() const noexcept;
};

constexpr TextField TEXT_FIELDS[] = {
    {"ItemName", &QVLTreeViewItem::SetItemName, &QVLTreeViewItem::GetItemName},
    {"FileName", &QVLTreeViewItem::SetFileName, &QVLTreeViewItem::GetFileName},
};

struct BoolField {
  const char* name;
  void (QVLTreeViewItem::*set)(bool) noexcept;
  bool (QVLTreeViewItem::*get)() const noexcept;
};

constexpr BoolField BOOL_FIELDS[] = {
    {"Selected", &QVLTreeViewItem::SetSelected, &QVLTreeViewItem::IsSelected},
    {"Checked", &QVLTreeViewItem::SetChecked, &QVLTreeViewItem::IsChecked},
    {"Cut", &QVLTreeViewItem::SetCut, &QVLTreeViewItem::IsCut},
    {"Bold", &QVLTreeViewItem::SetBold, &QVLTreeViewItem::IsBold},
};

struct IntField {
  const char* name;
  int initial;
  void (QVLTreeViewItem::*set)(int) noexcept;
  int (QVLTreeViewItem::*get)() const noexcept;
};

constexpr IntField INT_FIELDS[] = {
    {"Type", 0, &QVLTreeViewItem::SetType, &QVLTreeViewItem::GetType},
    {"ImageIndex", -1, &QVLTreeViewItem::SetImageIndex, &QVLTreeViewItem::GetImageIndex},
    {"StateIndex", -1, &QVLTreeViewItem::SetStateIndex, &QVLTreeViewItem::GetStateIndex},
    {"SubItem", 0, &QVLTreeViewItem::SetSubItem, &QVLTreeViewItem::GetSubItem},
    {"IndentOffset", 0, &QVLTreeViewItem::SetIndentOffset, &QVLTreeViewItem::GetIndentOffset},
};

constexpr std::int32_t LOWEST = INT32_MIN;
constexpr std::int32_t HIGHEST = INT32_MAX;

// Every number and flag of the record as the table above finds it.
std::string Snapshot(const QVLTreeViewItem& item) {
  std::string text;
  for (const IntField& field : INT_FIELDS) text += std::to_string((item.*field.get)()) + " ";
  for (const BoolField& field : BOOL_FIELDS) text += (item.*field.get)() ? '1' : '0';
  return text + " " + std::to_string(item.GetClientPtr());
}

TEST(Item, StartsWithItsDefaults) {
  const QVLTreeViewItem item;
  EXPECT_EQ(Snapshot(item), "0 -1 -1 0 0 0000 0");
  for (const TextField& field : TEXT_FIELDS) {
    ASSERT_NE((item.*field.get)(), nullptr) << field.name;
    EXPECT_EQ((item.*field.get)(), Text()) << field.name;
  }
}

TEST(Item, EachFieldKeepsItsValueAndLeavesTheOthersAlone) {
  for (const IntField& field : INT_FIELDS) {
    for (const int value : {LOWEST, -1, 0, 1, 2, HIGHEST}) {
      QVLTreeViewItem item;
      const std::string before = Snapshot(item);
      (item.*field.set)(value);
      EXPECT_EQ((item.*field.get)(), value) << field.name;
      (item.*field.set)(field.initial);
      EXPECT_EQ(Snapshot(item), before) << field.name;
    }
  }
  for (const std::int64_t value : {INT64_MIN, std::int64_t{-1}, INT64_MAX}) {
    QVLTreeViewItem item;
    item.SetClientPtr(value);
    EXPECT_EQ(item.GetClientPtr(), value);
  }
}

TEST(Item, EachFlagIsAloneInItsBit) {
  for (const bool others : {false, true}) {
    for (const BoolField& field : BOOL_FIELDS) {
      QVLTreeViewItem item;
      for (const BoolField& other : BOOL_FIELDS) (item.*other.set)(others);
      for (const bool value : {true, true, false, false, true}) {
        (item.*field.set)(value);
        for (const BoolField& read : BOOL_FIELDS) {
          const bool expected = read.name == field.name ? value : others;
          EXPECT_EQ((item.*read.get)(), expected) << field.name << " changed " << read.name;
        }
      }
    }
  }
}

TEST(Item, TextsAreCopiedUpToTheirEnd) {
  const Text longText(100000, TEXT('x'));
  for (const TextField& field : TEXT_FIELDS) {
    QVLTreeViewItem item;
    WCHAR source[] = TEXT("name\0behind");
    (item.*field.set)(source);
    source[0] = TEXT('N');
    EXPECT_EQ((item.*field.get)(), Text(TEXT("name"))) << field.name;
    (item.*field.set)(longText.c_str());
    EXPECT_EQ((item.*field.get)(), longText) << field.name;
    (item.*field.set)(TEXT("short"));
    EXPECT_EQ((item.*field.get)(), Text(TEXT("short"))) << field.name;
  }
}

TEST(Item, NullAndEmptyTextsEmptyTheField) {
  for (const TextField& field : TEXT_FIELDS) {
    for (const WCHAR* empty : {static_cast<const WCHAR*>(nullptr), TEXT("")}) {
      QVLTreeViewItem item;
      (item.*field.set)(empty);
      EXPECT_EQ((item.*field.get)(), Text()) << field.name;
      (item.*field.set)(TEXT("something"));
      (item.*field.set)(empty);
      ASSERT_NE((item.*field.get)(), nullptr) << field.name;
      EXPECT_EQ((item.*field.get)(), Text()) << field.name;
    }
  }
}

TEST(Item, TextsDoNotShareAField) {
  QVLTreeViewItem item;
  item.SetItemName(TEXT("item"));
  item.SetFileName(TEXT("file"));
  EXPECT_EQ(item.GetItemName(), Text(TEXT("item")));
  EXPECT_EQ(item.GetFileName(), Text(TEXT("file")));
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
  EXPECT_EQ(style.GetStyle(), 0u);
  EXPECT_EQ(style.GetStyleEx(), 0u);
  EXPECT_EQ(style.GetStyleExCtrl(), 0u);
  style.SetStyle(0x80000001);
  style.SetStyleEx(0xFFFFFFFF);
  style.SetStyleExCtrl(0x12345678);
  EXPECT_EQ(style.GetStyle(), 0x80000001);
  EXPECT_EQ(style.GetStyleEx(), 0xFFFFFFFF);
  EXPECT_EQ(style.GetStyleExCtrl(), 0x12345678u);
}

// The two entries of the destructor come first.
TEST(Records, OperationsStandInTheOrderOfTheContract) {
  using Item = QVLTreeViewItem;
  EXPECT_EQ(VirtualPlaces(&Item::SetType, &Item::GetType, &Item::GetItemName, &Item::SetItemName,
                          &Item::GetFileName, &Item::SetFileName, &Item::SetSelected,
                          &Item::IsSelected, &Item::SetChecked, &Item::IsChecked, &Item::SetCut,
                          &Item::IsCut, &Item::SetImageIndex, &Item::GetImageIndex,
                          &Item::SetStateIndex, &Item::GetStateIndex, &Item::GetClientPtr,
                          &Item::SetClientPtr, &Item::SetBold, &Item::IsBold, &Item::GetSubItem,
                          &Item::SetSubItem, &Item::GetIndentOffset, &Item::SetIndentOffset),
            PlacesFrom(2, 24));
  using Ext = QVLTreeViewStyleExt;
  EXPECT_EQ(VirtualPlaces(&Ext::SetStyle, &Ext::GetStyle, &Ext::SetStyleEx, &Ext::GetStyleEx,
                          &Ext::SetStyleExCtrl, &Ext::GetStyleExCtrl),
            PlacesFrom(2, 6));
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

}  // namespace
