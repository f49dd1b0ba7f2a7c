#include "browser_view.h"

#include <algorithm>
#include <array>

#include "paths.h"
#include "window_base.h"

namespace demo {
namespace {

constexpr int kViewId = 10;
constexpr int kTipWidth = 500;
constexpr int kNarrowestName = 80;

// Labels can be edited, and files renamed so, only in a directory that holds this file.
constexpr wchar_t kRenameMark[] = L".qvl-demo-scratch";

struct Colors {
  COLORREF background;
  COLORREF text;
};

// The first pair stands for the user's own window colors.
constexpr std::array<Colors, 3> kColors{{
    {0, 0},
    {RGB(255, 250, 232), RGB(84, 54, 18)},
    {RGB(30, 36, 46), RGB(214, 224, 236)},
}};

bool Exists(const std::wstring& path) {
  return GetFileAttributesW(LongPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The width of a column that shows this text in the list's font.
int WidthFor(HWND list, const wchar_t* text) {
  const LRESULT width = SendMessageW(list, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text));
  return static_cast<int>(width) + Scaled(16);
}

}  // namespace

BrowserView::BrowserView(DirectoryModel& shownModel, CallLog& log, IReactions& windowReactions)
    : model(shownModel),
      client(shownModel, log, &windowReactions),
      view(qvl::MakeView()),
      filler(*view, shownModel),
      mayRename(Exists(Join(shownModel.PathOf(0), kRenameMark))) {}

std::uint32_t BrowserView::Style(bool asList) const {
  if (asList) return kListStyle;
  return mayRename ? kTreeStyle | QVLS_EDITLABELS : kTreeStyle;
}

bool BrowserView::Open(HWND parent, bool asList, const RECT& area, const Progress& progress) {
  if (view->GetControlWindow()) KeepChecks();
  view->SetClient(&client);
  const HWND control =
      view->Create(parent, kViewId, static_cast<int>(area.left), static_cast<int>(area.top),
                   static_cast<int>(area.right - area.left),
                   static_cast<int>(area.bottom - area.top), Style(asList), nullptr);
  if (!control) return false;
  const qvl::ClientPause quiet(*view, &client);
  UseMessageFont(control);
  if (!asList) {
    SendMessageW(control, TVM_SETITEMHEIGHT, static_cast<WPARAM>(LineHeight() + Scaled(6)), 0);
  }
  filler.UseShellIcons();
  view->SetToolTipWidth(Scaled(kTipWidth));
  ApplyColors();
  {
    const qvl::DrawingPause pause(*view);
    filler.Fill(progress);
  }
  if (asList) qvl::ShowSortArrow(*view, static_cast<int>(sortedBy), isDescending);
  FitColumns();
  return true;
}

void BrowserView::Move(const RECT& area) {
  view->Move(static_cast<int>(area.left), static_cast<int>(area.top),
             static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top));
  FitColumns();
  view->Redraw();
}

void BrowserView::FitColumns() {
  if (IsList()) qvl::FitColumn(*view, static_cast<int>(Column::Name), Scaled(kNarrowestName));
}

// Notes the boxes in the model, before the view is filled again.
void BrowserView::KeepChecks() {
  for (const ItemHandle item : ItemsEverShown()) {
    if (const auto entry = EntryOf(*view, item)) {
      model.At(*entry).checked = view->IsItemChecked(item);
    }
  }
}

// The items whose boxes the user can have clicked. Most branches of a large tree are never
// expanded, and a query for an item takes the control longer the further down the item is.
ItemHandleList BrowserView::ItemsEverShown() {
  if (IsList()) return qvl::VisibleItems(*view);
  ItemHandleList items = qvl::TopLevelItems(*view);
  for (std::size_t i = 0; i < items.size(); ++i) {
    const LRESULT state = SendMessageW(view->GetControlWindow(), TVM_GETITEMSTATE,
                                       static_cast<WPARAM>(items[i]), TVIS_EXPANDEDONCE);
    if ((state & TVIS_EXPANDEDONCE) == 0) continue;
    const ItemHandleList children = qvl::Children(*view, items[i]);
    items.insert(items.end(), children.begin(), children.end());
  }
  return items;
}

void BrowserView::SortBy(Column column) {
  isDescending = column == sortedBy && !isDescending;
  sortedBy = column;
  model.Sort(sortedBy, isDescending);
  const qvl::DrawingPause pause(*view);
  SortItems({});
  qvl::ShowSortArrow(*view, static_cast<int>(sortedBy), isDescending);
}

// Brings the items into the model's order: all rows of a list, or in a tree the branches that have
// a new entry.
void BrowserView::SortItems(const std::vector<EntryIndex>& added) {
  const std::vector<EntryIndex> ranks = model.Ranks();
  const auto less = [&ranks](std::int64_t a, std::int64_t b) {
    return ranks[EntryOfValue(a)] < ranks[EntryOfValue(b)];
  };
  if (IsList()) {
    qvl::SortRows(*view, less);
    filler.FindRows();
    return;
  }
  std::vector<EntryIndex> parents;
  parents.reserve(added.size());
  for (const EntryIndex entry : added) parents.push_back(model.At(entry).parent);
  std::sort(parents.begin(), parents.end());
  parents.erase(std::unique(parents.begin(), parents.end()), parents.end());
  for (const EntryIndex parent : parents) {
    const ItemHandle item = filler.ItemOf(parent);
    if (item != -1) qvl::SortChildren(*view, item, less);
  }
}

void BrowserView::DeleteGone(std::vector<EntryIndex> gone) {
  if (gone.empty()) return;
  std::vector<bool> wasSelected(model.IndexLimit(), false);
  for (const ItemHandle item : qvl::SelectedItems(*view)) {
    if (const auto entry = EntryOf(*view, item)) wasSelected[*entry] = true;
  }
  if (IsList()) {  // from the last row on, so that rows before keep their numbers
    std::sort(gone.begin(), gone.end(),
              [this](EntryIndex a, EntryIndex b) { return filler.ItemOf(a) > filler.ItemOf(b); });
  }
  for (const EntryIndex entry : gone) filler.Delete(entry);
  // A control that loses its focused item selects another one.
  for (const ItemHandle item : qvl::SelectedItems(*view)) {
    const auto entry = EntryOf(*view, item);
    if (entry && !wasSelected[*entry]) view->SetItemSelected(item, false);
  }
}

void BrowserView::Follow(DirectoryModel&& fresh) {
  const Changes changes = model.Merge(std::move(fresh));
  if (changes.IsEmpty()) return;
  const qvl::ClientPause quiet(*view, &client);
  const auto top = EntryOf(*view, qvl::TopItem(*view));
  {
    const qvl::DrawingPause pause(*view);
    filler.FindRows();
    DeleteGone(changes.gone);
    filler.FindRows();
    for (const EntryIndex entry : changes.added) filler.Insert(entry);
    for (const EntryIndex entry : changes.updated) filler.Update(entry);
    SortItems(changes.added);
  }
  FitColumns();
  const ItemHandle topItem = top ? filler.ItemOf(*top) : -1;
  if (topItem != -1) qvl::ScrollToTop(*view, topItem);
}

void BrowserView::RemoveSelected() {
  // From the end, so that rows keep their numbers and children go before their parents.
  ItemHandleList items = qvl::SelectedItems(*view);
  std::reverse(items.begin(), items.end());
  filler.FindRows();
  for (const ItemHandle item : items) {
    const auto entry = EntryOf(*view, item);
    if (entry && *entry != 0 && filler.Delete(*entry)) model.At(*entry).removed = true;
  }
  filler.FindRows();
  FitColumns();
}

void BrowserView::BeginRename() {
  if (IsList() || !mayRename) return;
  const ItemHandle item = qvl::FocusedItem(*view);
  isRenameRequested = true;
  if (item != -1) qvl::BeginLabelEdit(*view, item);
  isRenameRequested = false;
}

bool BrowserView::MayEdit(ItemHandle item) const {
  const auto entry = EntryOf(*view, item);
  return isRenameRequested && entry && *entry != 0 && model.At(*entry).readable;
}

std::wstring BrowserView::Rename(ItemHandle item, const std::wstring& name) {
  const auto entry = EntryOf(*view, item);
  if (!entry || name.empty()) return L"there is no name";
  if (name.find_first_of(L"\\/:*?\"<>|") != name.npos) return L"the name has a forbidden character";
  const std::wstring former = model.PathOf(*entry);
  const std::wstring wanted = Join(model.PathOf(model.At(*entry).parent), name);
  if (Exists(wanted)) return L"a file with this name exists";
  if (!MoveFileW(LongPath(former).c_str(), LongPath(wanted).c_str())) {
    return L"error " + std::to_wstring(GetLastError());
  }
  model.At(*entry).name = name;
  return {};
}

void BrowserView::NextColors() {
  colors = (colors + 1) % kColors.size();
  ApplyColors();
}

void BrowserView::ApplyColors() {
  const bool isOwn = colors == 0;
  view->SetBkColor(isOwn ? GetSysColor(COLOR_WINDOW) : kColors[colors].background);
  view->SetTextColor(isOwn ? GetSysColor(COLOR_WINDOWTEXT) : kColors[colors].text);
  view->Redraw();
}

void BrowserView::MakeColumns(HWND listWindow) {
  UseMessageFont(listWindow);
  const qvl::Column columns[] = {
      {L"Name", Scaled(kNarrowestName)},
      {L"Size", WidthFor(listWindow, L"100,000,000"), LVCFMT_RIGHT},
      {L"Modified", WidthFor(listWindow, L"2024-05-06 07:08")},
  };
  qvl::InsertColumns(listWindow, columns);
}

}  // namespace demo
