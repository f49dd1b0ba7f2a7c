// The client's bracket round a change of the selection.
#pragma once

#include "common/view_base.h"

// Calls OnBeginSelectionChange in its constructor and OnEndSelectionChange in its destructor, on
// every path. Each call goes to the client that the view has at that moment, so a client that
// replaces another inside the bracket gets its end. A null client and the end of the view silence
// it. A callback may end the view: test the bracket like a LifeWatch, also right after
// construction.
class SelectionBracket {
 public:
  explicit SelectionBracket(QVLView& bracketed)
      : alive(bracketed.life), view(bracketed), opened(bracketed.client != nullptr) {
    if (opened) view.client->OnBeginSelectionChange(view.owner);
  }
  SelectionBracket(const SelectionBracket&) = delete;
  SelectionBracket& operator=(const SelectionBracket&) = delete;
  ~SelectionBracket() {
    if (alive && opened && view.client) view.client->OnEndSelectionChange(view.owner);
  }

  // Whether the view still has its control.
  explicit operator bool() const { return static_cast<bool>(alive); }

 private:
  LifeWatch alive;
  QVLView& view;  // read only while the view is alive
  bool opened;
};
