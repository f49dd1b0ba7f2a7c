#include "view_filler.h"

#include <vector>

#include "demo_client.h"
#include "entry_text.h"

namespace demo {
namespace {

constexpr int LIST_TYPE = 2;

// One record serves all insertions; the view copies what it needs.
class Filler {
 public:
  Filler(IQVLTreeView& view, const DirectoryModel& model, const FillSteps& steps)
      : view(view), model(model), steps(steps), isList(view.GetViewType() == LIST_TYPE) {}

  void Run() {
    const ItemHandle root = InsertBranch(0, -1);
    if (!isList && root != -1) view.ExpandItem(root, true);
  }

 private:
  struct Pending {
    std::size_t entry;
    ItemHandle parent;
  };

  // Depth first, because the rows of a list follow each other.
  ItemHandle InsertBranch(std::size_t first, ItemHandle parent) {
    std::vector<Pending> pending{{first, parent}};
    ItemHandle firstItem = -1;
    while (!pending.empty()) {
      const Pending next = pending.back();
      pending.pop_back();
      const Entry& entry = model.At(next.entry);
      if (entry.removed) continue;
      const ItemHandle item = Insert(next.entry, next.parent);
      if (item == -1) continue;
      if (next.entry == first) firstItem = item;
      for (auto child = entry.children.rbegin(); child != entry.children.rend(); ++child) {
        pending.push_back({*child, item});
      }
    }
    return firstItem;
  }

  ItemHandle Insert(std::size_t index, ItemHandle parent) {
    const Entry& entry = model.At(index);
    const WideText path = WidePath(entry.path);
    record.SetSubItem(0);
    record.SetType(1);
    record.SetItemName(entry.name.c_str());
    record.SetFileName(path.c_str());
    record.SetChecked(entry.ticked);
    record.SetClientPtr(ClientValue(index));
    const ItemHandle item = view.InsertItem(&record, parent);
    if (item == -1) return item;
    if (isList) InsertCells(entry, item);
    if (steps.decorate) steps.decorate(item, entry);
    ++done;
    if (steps.progress) steps.progress(done);
    return item;
  }

  void InsertCells(const Entry& entry, ItemHandle row) {
    InsertCell(Column::Size, SizeText(entry), row);
    InsertCell(Column::Modified, TimeText(entry), row);
  }

  void InsertCell(Column column, const WideText& text, ItemHandle row) {
    record.SetSubItem(static_cast<int>(column));
    record.SetItemName(text.c_str());
    view.InsertItem(&record, row);
  }

  IQVLTreeView& view;
  const DirectoryModel& model;
  const FillSteps& steps;
  const bool isList;
  QVLTreeViewItem record;
  std::size_t done = 0;
};

}  // namespace

RedrawPause::RedrawPause(IQVLTreeView& view) : view(view) {
  SendMessageW(view.GetControlWindow(), WM_SETREDRAW, FALSE, 0);
}

RedrawPause::~RedrawPause() {
  SendMessageW(view.GetControlWindow(), WM_SETREDRAW, TRUE, 0);
  view.Redraw();
}

void FillView(IQVLTreeView& view, const DirectoryModel& model, const FillSteps& steps) {
  const RedrawPause pause(view);
  view.DeleteAllItems();
  Filler(view, model, steps).Run();
}

void TickFirstFiles(DirectoryModel& model, int count) {
  for (const std::size_t child : model.At(0).children) {
    Entry& entry = model.At(child);
    if (count <= 0) return;
    if (entry.directory) continue;
    entry.ticked = true;
    --count;
  }
}

}  // namespace demo
