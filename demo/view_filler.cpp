#include "view_filler.h"

#include "demo_client.h"
#include "entry_text.h"

namespace demo {

void ViewFiller::UseShellIcons() { view.SetImageList(icons.ImageList()); }

void ViewFiller::Fill(const Progress& progress) {
  items.assign(model.IndexLimit(), -1);
  std::size_t done = 0;
  // Depth first, because the rows of a list follow each other.
  std::vector<EntryIndex> open{0};
  while (!open.empty()) {
    const EntryIndex entry = open.back();
    open.pop_back();
    Insert(entry);
    if (progress) progress(++done);
    if (ItemOf(entry) == -1) continue;
    const auto& children = model.At(entry).children;
    open.insert(open.end(), children.rbegin(), children.rend());
  }
  if (!qvl::IsList(view) && ItemOf(0) != -1) view.ExpandItem(ItemOf(0), true);
}

ItemHandle ViewFiller::ItemOf(EntryIndex entry) const {
  return entry < items.size() ? items[entry] : -1;
}

int ViewFiller::DepthOf(EntryIndex entry) const {
  int depth = 0;
  for (; entry != 0; entry = model.At(entry).parent) ++depth;
  return depth;
}

void ViewFiller::FillRecord(EntryIndex index) {
  const Entry& entry = model.At(index);
  record.SetSubItem(0);
  record.SetItemName(model.LabelOf(index).c_str());
  record.SetImageIndex(entry.directory ? icons.Folder() : icons.File(entry.name));
  record.SetChecked(entry.checked);
  record.SetClientPtr(ClientValue(index));
}

void ViewFiller::Insert(EntryIndex index) {
  const Entry& entry = model.At(index);
  const ItemHandle parent = index == 0 ? -1 : ItemOf(entry.parent);
  if (entry.removed || (index != 0 && parent == -1)) return;
  FillRecord(index);
  const bool isList = qvl::IsList(view);
  // With the parent's row the view would ask the control for that row's depth.
  if (isList) record.SetIndentOffset(DepthOf(index));
  const ItemHandle item = view.InsertItem(&record, isList ? -1 : parent);
  if (items.size() <= index) items.resize(index + 1, -1);
  items[index] = item;
  if (isList && item != -1) SetCells(index, item);
}

void ViewFiller::Update(EntryIndex index) {
  const ItemHandle item = ItemOf(index);
  if (item == -1) return;
  FillRecord(index);
  record.SetChecked(false);  // leaves the box as it is
  view.UpdateItem(&record, item);
  if (qvl::IsList(view)) SetCells(index, item);
}

void ViewFiller::SetCells(EntryIndex index, ItemHandle row) {
  const Entry& entry = model.At(index);
  record.SetChecked(false);
  const auto set = [this, row](Column column, const std::wstring& text) {
    if (text.empty()) return;
    record.SetSubItem(static_cast<int>(column));
    record.SetItemName(text.c_str());
    view.InsertItem(&record, row);
  };
  set(Column::Size, SizeText(entry));
  set(Column::Modified, TimeText(entry));
}

void ViewFiller::FindRows() {
  if (!qvl::IsList(view)) return;
  items.assign(model.IndexLimit(), -1);
  for (const ItemHandle row : qvl::VisibleItems(view)) {
    if (const auto entry = EntryOf(view, row)) items[*entry] = row;
  }
}

bool ViewFiller::Delete(EntryIndex entry) {
  const ItemHandle item = ItemOf(entry);
  if (item == -1 || !view.DeleteItem(item)) return false;
  if (qvl::IsList(view)) {
    items[entry] = -1;
  } else {
    ForgetBranch(entry);
  }
  return true;
}

// A tree deletes an item with all below it.
void ViewFiller::ForgetBranch(EntryIndex entry) {
  if (ItemOf(entry) == -1) return;
  items[entry] = -1;
  for (const EntryIndex child : model.At(entry).children) ForgetBranch(child);
}

void CheckFirstFiles(DirectoryModel& model, int count) {
  for (const EntryIndex child : model.At(0).children) {
    Entry& entry = model.At(child);
    if (count <= 0) return;
    if (entry.directory) continue;
    entry.checked = true;
    --count;
  }
}

}  // namespace demo
