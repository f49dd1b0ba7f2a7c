// Counts, finds and lists the items of a walk.
#pragma once

#include "core/qvl.h"

#include <exception>

// Appends each wanted item of the range. False if memory runs out; the list keeps what it has by
// then.
template <class Range, class Wanted>
bool AppendItems(ItemHandleList& list, const Range& range, Wanted wanted) noexcept {
  try {
    for (const ItemHandle item : range) {
      if (wanted(item)) list.push_back(item);
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

template <class Range>
bool AppendItems(ItemHandleList& list, const Range& range) noexcept {
  return AppendItems(list, range, [](ItemHandle) { return true; });
}

template <class Range, class Wanted>
int CountItems(const Range& range, Wanted wanted) {
  int count = 0;
  for (const ItemHandle item : range) {
    if (wanted(item)) ++count;
  }
  return count;
}

// The wanted item number `index`, from 0, or -1 if there are not so many.
template <class Range, class Wanted>
ItemHandle ItemAt(const Range& range, int index, Wanted wanted) {
  int place = 0;
  for (const ItemHandle item : range) {
    if (wanted(item) && place++ == index) return item;
  }
  return -1;
}
