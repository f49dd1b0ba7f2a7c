// The rows of a list, for a loop whose body calls the client.
#pragma once

#include "core/life_watch.h"
#include "platform/list_control.h"

#include <iterator>

// All rows from top to bottom, as many as there are when the walk begins. The walk ends early if
// the view ends.
class RowWalk {
 public:
  RowWalk(HWND control, ViewLife& life) : alive(life), count(ListControl::ItemCount(control)) {}

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
