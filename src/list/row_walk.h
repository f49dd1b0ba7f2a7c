// The rows for a loop whose body calls out.
#pragma once

#include "platform/list_control.h"
#include "view/life_watch.h"

#include <iterator>

// All rows from the top down, as many as there are when the walk begins. It ends early when the
// view ends.
class RowWalk {
 public:
  RowWalk(HWND control, ViewLife& life) : alive(life), count(list::ItemCount(control)) {}

  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = int;

    explicit Iterator(const RowWalk* of) : walk(of) {}

    int operator*() const { return row; }
    Iterator& operator++() {
      ++row;
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return !walk->alive || row >= walk->count; }

   private:
    const RowWalk* walk;
    int row = 0;
  };

  Iterator begin() const { return Iterator(this); }
  std::default_sentinel_t end() const { return {}; }

 private:
  LifeWatch alive;
  int count;
};
