// One view that is a tree or a list. F6 switches; checked items stay checked.
#include "frame.h"

#include <vector>

namespace {

struct Entry {
  const wchar_t* name;
  int parent;  // index of the parent, which comes first; -1 for the top level
  bool checked;
};

std::vector<Entry> entries = {{L"Music", -1, false},  {L"Jazz", 0, true},    {L"Opera", 0, false},
                              {L"Films", -1, false},  {L"Comedy", 3, false}, {L"Crime", 3, true},
                              {L"Thriller", 5, true}, {L"Games", -1, false}};

constexpr std::uint32_t kTreeStyle = QVLS_HASBUTTONS | QVLS_HASLINES | QVLS_LINESATROOT;
constexpr std::uint32_t kListStyle = QVLS_LISTVIEW | QVLS_NOCOLUMNHEADER;

// An item's client value is the index of its entry. In a list the parent row gives the indent, so
// both kinds of view are filled in the same way.
void Fill(IQVLTreeView& view) {
  const qvl::DrawingPause pause(view);
  std::vector<ItemHandle> items;
  QVLTreeViewItem record;
  for (const Entry& entry : entries) {
    record.SetItemName(entry.name);
    record.SetChecked(entry.checked);
    record.SetClientPtr(std::ssize(items));
    const bool top = entry.parent == -1;
    items.push_back(
        view.InsertItem(&record, top ? -1 : items[static_cast<std::size_t>(entry.parent)]));
  }
  view.ExpandAll();
  view.EnsureVisible(-1);
}

void KeepChecks(IQVLTreeView& view) {
  for (const ItemHandle top : qvl::TopLevelItems(view)) {
    for (const ItemHandle item : qvl::Branch(view, top)) {
      const auto index = static_cast<std::size_t>(view.GetItemClientPtr(item));
      entries[index].checked = view.IsItemChecked(item);
    }
  }
}

bool Show(IQVLTreeView& view, Frame& frame, bool asList) {
  if (view.GetControlWindow()) KeepChecks(view);
  if (!frame.Show(view, QVLS_CHECKBOXES | (asList ? kListStyle : kTreeStyle))) return false;
  Fill(view);
  frame.SetTitle(asList ? L"List - F6: tree" : L"Tree - F6: list");
  return true;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  Frame frame(L"", 220, 180);
  qvl::Client client;  // no callback is needed here
  const qvl::ViewOwner view = qvl::MakeView();
  view->SetClient(&client);
  if (!Show(*view, frame, false)) return 1;

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_F6) {
      if (!Show(*view, frame, !qvl::IsList(*view))) return 1;
      continue;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
