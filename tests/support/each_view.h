#pragma once

#include <cstdint>
#include <string>

#include "support/host_window.h"

// Each kind of view in turn, for what both do alike.
class EachView : public HostTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  bool IsList() const { return GetParam() == QVLS_LISTVIEW; }

  // The value for this kind of view: a message, a code, a style.
  template <class Value>
  Value TreeOrList(Value tree, Value list) const {
    return IsList() ? list : tree;
  }

  void Open(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr, int id = kControlId) {
    OpenView(GetParam() | flags, styleExt, id);
  }

  // The same with the items a, b and c.
  void OpenWithItems(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr,
                     int id = kControlId) {
    Open(flags, styleExt, id);
    client.labels.clear();
    a = Insert(TEXT("a"));
    b = Insert(TEXT("b"));
    c = Insert(TEXT("c"));
    PumpMessages();
    client.Take();
  }

  ItemHandle a = -1;
  ItemHandle b = -1;
  ItemHandle c = -1;
};

// The last arguments of INSTANTIATE_TEST_SUITE_P.
inline const auto kEachView = ::testing::Values(0u, std::uint32_t{QVLS_LISTVIEW});

inline std::string ViewName(const ::testing::TestParamInfo<std::uint32_t>& info) {
  return info.param == QVLS_LISTVIEW ? "List" : "Tree";
}
