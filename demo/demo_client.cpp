#include "demo_client.h"

#include <array>

#include "entry_text.h"
#include "paths.h"
#include "text.h"

namespace demo {
namespace {

struct FlagName {
  std::uint32_t flag;
  const char* name;
};

constexpr std::array<FlagName, 12> kHitFlags{{
    {QVLHT_ABOVE, "above"},
    {QVLHT_BELOW, "below"},
    {QVLHT_NOWHERE, "nowhere"},
    {QVLHT_ONITEM, "item"},
    {QVLHT_ONITEMBUTTON, "button"},
    {QVLHT_ONITEMICON, "icon"},
    {QVLHT_ONITEMINDENT, "indent"},
    {QVLHT_ONITEMLABEL, "label"},
    {QVLHT_ONITEMRIGHT, "right"},
    {QVLHT_ONITEMSTATEICON, "box"},
    {QVLHT_TOLEFT, "left of all"},
    {QVLHT_TORIGHT, "right of all"},
}};

std::string HitText(std::uint32_t flags) {
  std::string text;
  for (const FlagName& known : kHitFlags) {
    if ((flags & known.flag) == 0) continue;
    if (!text.empty()) text += '+';
    text += known.name;
  }
  return text.empty() ? "nothing" : text;
}

// Why the shell's menu cannot be shown for these files; empty if it can.
std::wstring MenuObstacle(const FileNameList& files) {
  if (!qvl::AreInOneFolder(files)) return L"the selected files are in different folders";
  for (const std::wstring& file : files) {
    if (file.size() >= MAX_PATH) return L"the path of " + FileName(file) + L" is too long";
  }
  const std::wstring* missing = qvl::FirstMissingFile(files);
  return missing ? FileName(*missing) + L" does not exist any more" : L"";
}

}  // namespace

std::optional<EntryIndex> EntryOf(IQVLTreeView& view, ItemHandle item) {
  const std::int64_t value = item == -1 ? 0 : view.GetItemClientPtr(item);
  return value > 0 ? std::optional(EntryOfValue(value)) : std::nullopt;
}

void DemoClient::Note(const std::string& call) { log.Add(call, depth); }

std::string DemoClient::NameOf(IQVLTreeView& view, ItemHandle item) const {
  const auto entry = EntryOf(view, item);
  return entry ? model.RelativeName(*entry) : "none";
}

void DemoClient::OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item,
                               std::uint32_t hitFlags) {
  Note("OnContextMenu " + NameOf(*view, item) + " on " + HitText(hitFlags) + " at " +
       std::to_string(x) + "," + std::to_string(y));
  if (reactions) reactions->OpenContextMenu(x, y, item);
}

bool DemoClient::OnGetInfoTip(IQVLTreeView* view, ItemHandle item, WCHAR** text, int* length,
                              std::uint32_t hitFlags) {
  Note("OnGetInfoTip " + NameOf(*view, item) + " on " + HitText(hitFlags));
  const auto entry = EntryOf(*view, item);
  if (!entry) return false;
  tip = TipText(model, *entry);
  *text = tip.data();
  *length = static_cast<int>(tip.size());
  return true;
}

bool DemoClient::CollectFiles(IQVLTreeView& view, const ItemHandleList& items, FileNameList& files,
                              std::string call) {
  const char* separator = " ";
  for (const ItemHandle item : items) {
    const auto entry = EntryOf(view, item);
    if (!entry) continue;
    files.push_back(model.PathOf(*entry));
    call += separator + model.RelativeName(*entry);
    separator = ", ";
  }
  Note(call);
  return !files.empty();
}

bool DemoClient::OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) {
  return CollectFiles(*view, *items, *files, "OnBeginDrag");
}

bool DemoClient::OnCreateColumns(IQVLTreeView*, HWND listWindow, RECT*) {
  Note("OnCreateColumns");
  if (reactions) reactions->MakeColumns(listWindow);
  return reactions != nullptr;
}

bool DemoClient::OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items,
                                    FileNameList* files) {
  if (!CollectFiles(*view, *items, *files, "OnShellContextMenu")) return false;
  const std::wstring obstacle = MenuObstacle(*files);
  if (obstacle.empty()) return true;
  if (reactions) reactions->ShowNotice(L"No menu: " + obstacle);
  return false;
}

bool DemoClient::OnLabelEdit(IQVLTreeView*, NMHDR* record, std::uint32_t code) {
  const qvl::LabelEdit edit = qvl::ReadLabelEdit(record, code);
  const bool result = reactions ? reactions->AnswerLabelEdit(edit) : edit.begins;
  const char* outcome =
      edit.begins ? (result ? "cancelled" : "allowed") : (result ? "accepted" : "not accepted");
  Note(std::string("OnLabelEdit ") + (edit.begins ? "begins, " : "ends, ") + outcome);
  return result;
}

void DemoClient::OnBeginSelectionChange(IQVLTreeView*) {
  Note("OnBeginSelectionChange");
  ++depth;
}

void DemoClient::OnItemSelectionChanged(IQVLTreeView* view, ItemHandle item) {
  Note("OnItemSelectionChanged " + NameOf(*view, item));
}

void DemoClient::OnEndSelectionChange(IQVLTreeView*) {
  --depth;
  Note("OnEndSelectionChange");
}

void DemoClient::OnColumnClick(IQVLTreeView*, int column) {
  Note("OnColumnClick " + std::to_string(column));
  if (reactions) reactions->SortBy(static_cast<Column>(column));
}

void DemoClient::OnItemExpanded(IQVLTreeView* view, ItemHandle item) {
  const bool expanded = view->IsItemExpanded(item);
  Note("OnItemExpanded " + NameOf(*view, item) + (expanded ? " open" : " closed"));
}

}  // namespace demo
