// Runs every operation on both views with an interruption at any of its points.
#pragma once

#include "random/operations.h"
#include "support/import_patch.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

// Counts the points of an operation and selects the one that is interrupted.
struct Interruption {
  static inline int points = 0;
  static inline int at = 0;  // from 1; 0 for none

  static void Arm(int point) {
    points = 0;
    at = point;
  }
  static bool IsHere() { return ++points == at; }
};

// The first points of an operation that walks over items stand for all.
constexpr int kMostPoints = 25;

inline Choices ChoicesFromSeed(unsigned seed) {
  return [engine = std::mt19937(seed)](int limit) mutable {
    return static_cast<int>(engine() % static_cast<unsigned>(limit));
  };
}

// A view with items, and a client that agrees to everything.
class Scene : public RandomHost {
 public:
  Scene(HWND window, bool asList, unsigned seed)
      : RandomHost(window, asList, ChoicesFromSeed(seed)) {
    editable = true;
    Create();
    for (int i = 0; i < 4; ++i) Insert();
    view->ExpandAll();
    if (const ItemHandleList items = Items(); !items.empty()) {
      view->SetItemSelected(items.back(), true);
    }
    HandleQueuedMessages();
  }

  // A new control takes items, selects and checks them.
  void ExpectUsable() {
    if (!view) view = GetIQVLTreeView();
    view->SetClient(this);
    const std::uint32_t style = QVLS_CHECKBOXES | (list ? QVLS_LISTVIEW : 0U);
    ASSERT_NE(view->Create(host, kControlId, 0, 0, 300, 400, style, nullptr), nullptr);
    QVLTreeViewItem record;
    record.SetChecked(true);
    for (int i = 0; i < 3; ++i) EXPECT_NE(view->InsertItem(&record, -1), -1);
    openBrackets = 0;
    view->SelectAll();
    EXPECT_EQ(openBrackets, 0);
    EXPECT_EQ(view->GetSelectedCount(), 3);
    EXPECT_EQ(view->GetCheckedCount(), 3);
  }

 protected:
  bool Called(const std::string& callback) override { return callback != "CreateColumns"; }
  void NameFiles(FileNameList* files) override {
    *files = {TEXT("C:\\folder\\file.txt"), TEXT("C:\\folder\\other.txt")};
  }
};

// Calls `run(operation, asList, seed)` for every operation on both views, with as many seeds as the
// operation has ways, up to a limit.
template <class Run>
void ForEachOperation(int mostWays, Run run) {
  for (const Operation& operation : Operations()) {
    for (int way = 0; way < 2 * std::min(operation.ways, mostWays); ++way) {
      const bool asList = way % 2 == 1;
      const auto seed = static_cast<unsigned>(1 + way / 2);
      SCOPED_TRACE(operation.name + (asList ? " of a list, seed " : " of a tree, seed ") +
                   std::to_string(seed));
      run(operation, asList, seed);
    }
  }
}
