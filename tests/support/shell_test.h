#pragma once

#include "support/each_view.h"

// A view of which the first and the last item are selected. Both kinds of view hand their selection
// to the system in the same way.
class EachSelectionView : public EachView {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    Open();
  }

  void Open() {
    OpenWithItems();
    view->SetItemSelected(a, true);
    view->SetItemSelected(c, true);
    client.Take();
  }

  // What the control tells the view's window when the mouse drags `item`.
  void BeginDrag(ItemHandle item) { NotifyOf(item, TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG)); }

  // From now on the client answers both requests for names with these.
  void AnswerWith(const FileNameList& names, bool answer = true) {
    client.onBeginDrag = [=](ItemHandleList*, FileNameList* files) {
      *files = names;
      return answer;
    };
    client.onShellContextMenu = client.onBeginDrag;
  }
};
