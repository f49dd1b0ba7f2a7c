// A tree of named items with check boxes. The title shows how many of the visible ones are checked.
#include "frame.h"

#include <string>

namespace {

ItemHandle Add(IQVLTreeView& view, const wchar_t* name, ItemHandle parent, bool checked = false) {
  QVLTreeViewItem item;
  item.SetItemName(name);
  item.SetChecked(checked);
  return view.InsertItem(&item, parent);
}

void Fill(IQVLTreeView& view) {
  const qvl::DrawingPause pause(view);
  for (const wchar_t* season : {L"Spring", L"Summer", L"Autumn", L"Winter"}) {
    const ItemHandle branch = Add(view, season, -1);
    for (const wchar_t* task : {L"Clean windows", L"Dig garden"}) Add(view, task, branch);
    Add(view, L"Read meters", branch, true);
  }
  view.ExpandAll();
  view.EnsureVisible(-1);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Frame frame(L"", 280, 290);
  qvl::Client client;  // no callback is needed here
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  if (!frame.Show(*view, QVLS_CHECKBOXES | QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT)) {
    return 1;
  }
  Fill(*view);

  // A tree makes no callback when a box is clicked, so the title is updated after each message.
  int shown = -1;
  const auto updateTitle = [&] {
    const int count = view->GetCheckedCount();
    if (count != shown) frame.SetTitle((std::to_wstring(count) + L" checked").c_str());
    shown = count;
  };
  updateTitle();
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    updateTitle();
  }
  return 0;
}
