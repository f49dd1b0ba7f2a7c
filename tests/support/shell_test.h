#pragma once

#include "support/each_view.h"

// A view whose first and last items are selected. Both views pass their selection to the system in
// the same way.
class EachSelectionView : public EachView {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    OpenWithItems();
    view->SetItemSelected(a, true);
    view->SetItemSelected(c, true);
    client.Take();
  }

  // Sends the notification that begins a drag of `item`.
  void BeginDrag(ItemHandle item) { NotifyOf(item, TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG)); }

  // The client answers both requests for names with these from now on.
  void AnswerWith(const FileNameList& names, bool answer = true) {
    client.onBeginDrag = client.onShellContextMenu = [=](ItemHandleList*, FileNameList* files) {
      *files = names;
      return answer;
    };
  }
};
