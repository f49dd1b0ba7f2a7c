#include "browser_view.h"

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "view_filler.h"
#include "window_base.h"

namespace demo {
namespace {

constexpr int VIEW_ID = 10;
constexpr int LIST_TYPE = 2;
constexpr int TIP_WIDTH = 500;

// Labels can be edited, and files so renamed, only in a directory that says so by holding this
// file.
constexpr wchar_t RENAME_MARK[] = L".qvl-demo-scratch";

struct Colours {
  COLORREF background;
  COLORREF text;
};

// The first pair stands for the user's own window colours.
constexpr std::array<Colours, 3> COLOURS{{
    {0, 0},
    {RGB(255, 250, 232), RGB(84, 54, 18)},
    {RGB(30, 36, 46), RGB(214, 224, 236)},
}};

// The shell's icons go by file name, so a folder's has to be asked for as a folder. Asked before
// the view takes the shell's icons over, it is among them.
int FolderIcon() {
  SHFILEINFOW info{};
  const DWORD_PTR icons =
      SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof info,
                     SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES);
  return icons == 0 ? -1 : info.iIcon;
}

// The client need not hear what filling does to the selection and, in a list, to every row.
class ClientPause {
 public:
  ClientPause(IQVLTreeView& view, IQVLTreeViewClient& client) : view(view), client(client) {
    view.SetClient(nullptr);
  }
  ~ClientPause() { view.SetClient(&client); }

  ClientPause(const ClientPause&) = delete;
  ClientPause& operator=(const ClientPause&) = delete;

 private:
  IQVLTreeView& view;
  IQVLTreeViewClient& client;
};

void InsertColumn(HWND list, Column place, const wchar_t* title, int width, int format) {
  LVCOLUMNW column{};
  column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  column.pszText = const_cast<wchar_t*>(title);
  column.cx = width;
  column.fmt = format;
  SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(place),
               reinterpret_cast<LPARAM>(&column));
}

}  // namespace

BrowserView::BrowserView(DirectoryModel& model, CallLog& log, IDesk& desk)
    : model(model), client(model, log, &desk), view(GetIQVLTreeView()) {
  std::error_code failure;
  mayRename = std::filesystem::exists(model.At(0).path / RENAME_MARK, failure);
}

std::uint32_t BrowserView::Style(bool asList) const {
  if (asList) return LIST_STYLE;
  return mayRename ? TREE_STYLE | QVLS_EDITLABELS : TREE_STYLE;
}

bool BrowserView::Open(HWND parent, bool asList, const RECT& area, const Progress& progress) {
  if (!view) return false;
  if (view->GetControlWindow() != nullptr) KeepTicks();
  view->SetClient(&client);
  const HWND control =
      view->Create(parent, VIEW_ID, static_cast<int>(area.left), static_cast<int>(area.top),
                   static_cast<int>(area.right - area.left),
                   static_cast<int>(area.bottom - area.top), Style(asList), nullptr);
  if (control == nullptr) return false;
  UseMessageFont(control);
  if (!asList) SendMessageW(control, TVM_SETITEMHEIGHT, static_cast<WPARAM>(LineHeight() + 6), 0);
  folderIcon = FolderIcon();
  view->UseSystemImageList();
  view->SetToolTipWidth(TIP_WIDTH);
  ApplyColours();
  Fill(progress);
  return true;
}

bool BrowserView::IsList() const { return view->GetViewType() == LIST_TYPE; }

void BrowserView::Move(const RECT& area) {
  view->Move(static_cast<int>(area.left), static_cast<int>(area.top),
             static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top));
  view->Redraw();
}

// Notes in the model which boxes are ticked, before the view is filled anew.
void BrowserView::KeepTicks() {
  for (const ItemHandle item : ItemsEverShown()) {
    if (const auto entry = EntryOf(*view, item)) {
      model.At(*entry).ticked = view->IsItemChecked(item);
    }
  }
}

// The items whose boxes the user can have clicked. Large trees are mostly never opened, and to ask
// for an item costs the control more the further down it is.
ItemHandleList BrowserView::ItemsEverShown() {
  ItemHandleList items;
  view->GetItems(&items, true);
  if (IsList()) return items;
  items.resize(std::min<std::size_t>(items.size(), 1));
  for (std::size_t i = 0; i < items.size(); ++i) {
    const LRESULT state = SendMessageW(view->GetControlWindow(), TVM_GETITEMSTATE,
                                       static_cast<WPARAM>(items[i]), TVIS_EXPANDEDONCE);
    if ((state & TVIS_EXPANDEDONCE) == 0) continue;
    ItemHandle child = view->GetFirstChildItem(items[i]);
    for (; child != 0; child = view->GetNextSiblingItem(child)) items.push_back(child);
  }
  return items;
}

void BrowserView::Fill(const Progress& progress) {
  const ClientPause pause(*view, client);
  FillSteps steps;
  steps.progress = progress;
  steps.decorate = [this](ItemHandle item, const Entry& entry) {
    if (entry.directory) ShowFolderIcon(item);
  };
  FillView(*view, model, steps);
}

void BrowserView::ShowFolderIcon(ItemHandle item) {
  if (folderIcon == -1) return;
  if (IsList()) {
    LVITEMW row{};
    row.mask = LVIF_IMAGE;
    row.iItem = static_cast<int>(item);
    row.iImage = folderIcon;
    SendMessageW(view->GetControlWindow(), LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&row));
    return;
  }
  TVITEMW branch{};
  branch.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  branch.hItem = reinterpret_cast<HTREEITEM>(item);
  branch.iImage = folderIcon;
  branch.iSelectedImage = folderIcon;
  SendMessageW(view->GetControlWindow(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&branch));
}

void BrowserView::SortBy(Column column, const Progress& progress) {
  descending = column == sortedBy && !descending;
  sortedBy = column;
  KeepTicks();
  model.Sort(sortedBy, descending);
  Fill(progress);
}

std::vector<ItemHandle> BrowserView::SelectedItems() {
  ItemHandleList items;
  view->GetItems(&items, true);
  std::erase_if(items, [this](ItemHandle item) { return !view->IsItemSelected(item); });
  return items;
}

void BrowserView::RemoveSelected() {
  // From the end, so that rows keep their numbers and children go before their parents.
  std::vector<ItemHandle> items = SelectedItems();
  std::reverse(items.begin(), items.end());
  for (const ItemHandle item : items) {
    const auto entry = EntryOf(*view, item);
    if (entry && *entry != 0 && view->DeleteItem(item)) model.At(*entry).removed = true;
  }
}

void BrowserView::BeginRename() {
  if (IsList() || !mayRename) return;
  const HWND tree = view->GetControlWindow();
  const LRESULT caret = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
  renameAsked = true;
  if (caret != 0) SendMessageW(tree, TVM_EDITLABELW, 0, caret);
  renameAsked = false;
}

bool BrowserView::MayEdit(const NMTVDISPINFOW& record) const {
  const auto entry = EntryOf(*view, reinterpret_cast<ItemHandle>(record.item.hItem));
  return renameAsked && entry && *entry != 0;
}

bool BrowserView::TakeLabel(const NMTVDISPINFOW& record) {
  const auto entry = EntryOf(*view, reinterpret_cast<ItemHandle>(record.item.hItem));
  if (!entry || record.item.pszText == nullptr || record.item.pszText[0] == L'\0') return false;
  const std::filesystem::path former = model.At(*entry).path;
  const std::filesystem::path wanted = former.parent_path() / record.item.pszText;
  std::error_code failure;
  if (std::filesystem::exists(wanted, failure)) return false;
  std::filesystem::rename(former, wanted, failure);
  if (failure) return false;
  model.Rename(*entry, record.item.pszText);
  return true;
}

void BrowserView::NextColours() {
  colours = (colours + 1) % COLOURS.size();
  ApplyColours();
}

void BrowserView::ApplyColours() {
  const bool own = colours == 0;
  view->SetBkColor(own ? GetSysColor(COLOR_WINDOW) : COLOURS[colours].background);
  view->SetTextColor(own ? GetSysColor(COLOR_WINDOWTEXT) : COLOURS[colours].text);
  view->Redraw();
}

void BrowserView::MakeColumns(HWND listWindow, const RECT& clientRect) const {
  const int scrollBar = GetSystemMetrics(SM_CXVSCROLL);
  const int sizeWidth = 90;
  const int timeWidth = 140;
  const int rest = static_cast<int>(clientRect.right) - scrollBar - sizeWidth - timeWidth;
  InsertColumn(listWindow, Column::Name, L"Name", std::max(rest, 120), LVCFMT_LEFT);
  InsertColumn(listWindow, Column::Size, L"Size", sizeWidth, LVCFMT_RIGHT);
  InsertColumn(listWindow, Column::Modified, L"Modified", timeWidth, LVCFMT_LEFT);
}

}  // namespace demo
