// What an operation checks after a callback. A callback may destroy the view or delete items, so an
// operation keeps a LifeWatch of its view and a HeldItem for each item that it uses again.
#pragma once

#include "core/qvl.h"

class LifeWatch;
class HeldItem;

// The life of a view's control. It ends with Destroy or with the view, and then all watches and
// held items are reset.
class ViewLife {
 public:
  ViewLife() = default;
  ViewLife(const ViewLife&) = delete;
  ViewLife& operator=(const ViewLife&) = delete;
  ~ViewLife() { End(); }

  void End();
  void ItemDeleted(ItemHandle item);

 private:
  friend LifeWatch;
  friend HeldItem;

  LifeWatch* watches = nullptr;
  HeldItem* items = nullptr;
};

// True until the watched life ends. Watches live on the stack and are destroyed in reverse order of
// creation.
class LifeWatch {
 public:
  explicit LifeWatch(ViewLife& watched) : life(&watched), next(watched.watches) {
    watched.watches = this;
  }
  LifeWatch(const LifeWatch&) = delete;
  LifeWatch& operator=(const LifeWatch&) = delete;
  ~LifeWatch() {
    if (life) life->watches = next;
  }

  explicit operator bool() const { return life != nullptr; }

 private:
  friend ViewLife;

  ViewLife* life;
  LifeWatch* next;
};

// An item that becomes 0 when the control deletes it or the view ends. Held items live on the stack
// and are destroyed in reverse order of creation.
class HeldItem {
 public:
  HeldItem(ViewLife& watched, ItemHandle item) : life(&watched), next(watched.items), handle(item) {
    watched.items = this;
  }
  HeldItem(const HeldItem&) = delete;
  HeldItem& operator=(const HeldItem&) = delete;
  ~HeldItem() {
    if (life) life->items = next;
  }

  ItemHandle Get() const { return handle; }
  void Hold(ItemHandle item) { handle = life ? item : 0; }

 private:
  friend ViewLife;

  ViewLife* life;
  HeldItem* next;
  ItemHandle handle;
};

inline void ViewLife::End() {
  for (; watches; watches = watches->next) watches->life = nullptr;
  for (; items; items = items->next) {
    items->life = nullptr;
    items->handle = 0;
  }
}

inline void ViewLife::ItemDeleted(ItemHandle item) {
  for (HeldItem* held = items; held; held = held->next) {
    if (held->handle == item) held->handle = 0;
  }
}
