// The visible items of a tree, for a loop whose body calls the client or changes the tree.
#pragma once

#include "core/life_watch.h"
#include "platform/tree_control.h"

#include <iterator>

// The visible items from top to bottom. The walk ends early if its current item is deleted or the
// view ends. Nothing of either is used then.
class VisibleWalk {
 public:
  VisibleWalk(HWND walked, ViewLife& life)
      : control(walked), held(life, TreeControl::FirstItem(walked)) {}

  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = ItemHandle;

    explicit Iterator(VisibleWalk* of) : walk(of) {}

    ItemHandle operator*() const { return walk->held.Get(); }
    Iterator& operator++() {
      walk->Advance();
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return walk->held.Get() == 0; }

   private:
    VisibleWalk* walk;
  };

  Iterator begin() { return Iterator(this); }
  std::default_sentinel_t end() const { return {}; }

 private:
  void Advance() {
    if (held.Get()) held.Hold(TreeControl::NextVisible(control, held.Get()));
  }

  HWND control;
  HeldItem held;
};
