// The client's bracket round a change of the selection.
#pragma once

#include "core/qvl.h"
#include "view/life_watch.h"

// Opens at once and closes at the end of its scope, on every path. The client that heard the
// opening hears the closing, unless the view has ended or let go of it. Opening calls out, so the
// bracket is to be tested like a LifeWatch, right after it was made too.
class SelectionBracket {
 public:
  SelectionBracket(IQVLTreeView* callOwner, IQVLTreeViewClient* const& viewClient, ViewLife& life)
      : alive(life), owner(callOwner), current(viewClient), opened(viewClient) {
    if (opened) opened->OnBeginSelectionChange(owner);
  }
  SelectionBracket(const SelectionBracket&) = delete;
  SelectionBracket& operator=(const SelectionBracket&) = delete;
  ~SelectionBracket() {
    if (IsHeard()) opened->OnEndSelectionChange(owner);
  }

  // Whether the view is still there.
  explicit operator bool() const { return static_cast<bool>(alive); }

  // Whether the view still has the client that heard the opening.
  bool IsHeard() const { return alive && opened && opened == current; }

 private:
  LifeWatch alive;
  IQVLTreeView* owner;
  IQVLTreeViewClient* const& current;  // the view's field, read only while the view lives
  IQVLTreeViewClient* opened;
};
