#include "demo_client.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "entry_text.h"

namespace demo {
namespace {

struct FlagName {
  std::uint32_t flag;
  const char* name;
};

constexpr std::array<FlagName, 12> HIT_FLAGS{{
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
  for (const FlagName& known : HIT_FLAGS) {
    if ((flags & known.flag) == 0) continue;
    if (!text.empty()) text += '+';
    text += known.name;
  }
  return text.empty() ? "nothing" : text;
}

// Why the shell's menu may not be shown for these files; empty if it may. The menu belongs to the
// folder of the first file, so its commands would change the wrong files of another folder.
WideText MenuObstacle(const FileNameList& files) {
  const std::filesystem::path folder = std::filesystem::path(files.front()).parent_path();
  for (const std::filesystem::path file : files) {
    if (file.parent_path() != folder) return TEXT("the selected files are in different folders");
    std::error_code failure;
    if (!std::filesystem::exists(file, failure)) {
      return WidePath(file.filename()) + TEXT(" is no longer there");
    }
  }
  return {};
}

bool IsBeginOfEdit(std::uint32_t code) {
  return code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
}

}  // namespace

std::optional<std::size_t> EntryOf(IQVLTreeView& view, ItemHandle item) {
  if (item == -1) return std::nullopt;
  const std::int64_t value = view.GetItemClientPtr(item);
  if (value <= 0) return std::nullopt;
  return static_cast<std::size_t>(value - 1);
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
  if (desk) desk->OpenContextMenu(x, y, item);
}

bool DemoClient::OnGetInfoTip(IQVLTreeView* view, ItemHandle item, WCHAR** text, int* length,
                              std::uint32_t hitFlags) {
  Note("OnGetInfoTip " + NameOf(*view, item) + " on " + HitText(hitFlags));
  const auto entry = EntryOf(*view, item);
  if (!entry) return false;
  tip = TipText(model.At(*entry));
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
    files.push_back(WidePath(model.At(*entry).path));
    call += separator + model.RelativeName(*entry);
    separator = ", ";
  }
  Note(call);
  return !files.empty();
}

bool DemoClient::OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) {
  return CollectFiles(*view, *items, *files, "OnBeginDrag");
}

bool DemoClient::OnCreateColumns(IQVLTreeView*, HWND listWindow, RECT* clientRect) {
  Note("OnCreateColumns");
  if (desk) desk->MakeColumns(listWindow, *clientRect);
  return desk != nullptr;
}

bool DemoClient::OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items,
                                    FileNameList* files) {
  if (!CollectFiles(*view, *items, *files, "OnShellContextMenu")) return false;
  const WideText obstacle = MenuObstacle(*files);
  if (obstacle.empty()) return true;
  if (desk) desk->ShowNotice(TEXT("No menu: ") + obstacle);
  return false;
}

bool DemoClient::OnLabelEdit(IQVLTreeView*, NMHDR* record, std::uint32_t code) {
  const bool begins = IsBeginOfEdit(code);
  const bool answer = desk ? desk->AnswerLabelEdit(record, code) : begins;
  const char* outcome = begins ? (answer ? "refused" : "allowed") : (answer ? "taken" : "left");
  Note(std::string("OnLabelEdit ") + (begins ? "begins, " : "ends, ") + outcome);
  return answer;
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
  if (desk) desk->SortBy(static_cast<Column>(column));
}

void DemoClient::OnItemExpanded(IQVLTreeView* view, ItemHandle item) {
  const bool expanded = view->IsItemExpanded(item);
  Note("OnItemExpanded " + NameOf(*view, item) + (expanded ? " open" : " closed"));
}

}  // namespace demo
