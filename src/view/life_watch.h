// How a flow that calls the host learns what is left afterwards. The host may end the view or
// delete items from any callback, so a flow keeps a LifeWatch of its view and a HeldItem for each
// item it will name again, and asks them after every call out.
#pragma once

#include "core/qvl.h"

class LifeWatch;
class HeldItem;

// The life of a view's control, last field of the view. It ends with Destroy or with the object,
// and everything that watches it learns of it then.
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

// True as long as the life that it was made for goes on. Lives on the stack, so that watches leave
// in the opposite order of their coming.
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

// An item that becomes 0 when the control deletes it or the view ends. Lives on the stack.
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
