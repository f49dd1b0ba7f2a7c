#include "core/proxy_view.h"

#include "list/list_view.h"
#include "tree/tree_view.h"

#include <new>
#include <utility>

namespace {

template <class View>
IQVLTreeView* MakeView(IQVLTreeView* owner) {
  auto* view = new (std::nothrow) View;
  if (view) view->SetOwner(owner);
  return view;
}

}  // namespace

// The field stays set until the view is freed, so operations inside callbacks still reach the view
// while its windows are destroyed. A callback that calls Create has already freed the view here.
void QVLProxyView::EndImplementation() {
  LifeWatch same(implementationLife);
  implementation->Destroy();
  if (!same) return;
  implementationLife.End();
  delete std::exchange(implementation, nullptr);
}

// Loops because a callback may call Create while the implementation ends.
QVLProxyView::~QVLProxyView() {
  life.End();  // a Create that this destructor interrupts sees it
  while (implementation) EndImplementation();
}

HWND QVLProxyView::Create(HWND parent, int controlId, int x, int y, int width, int height,
                          std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  LifeWatch alive(life);
  while (alive && implementation) EndImplementation();
  if (!alive) return nullptr;
  IQVLTreeView* made =
      (style & QVLS_LISTVIEW) ? MakeView<QVLListView>(this) : MakeView<QVLTreeView>(this);
  if (!made) return nullptr;
  implementation = made;
  made->SetClient(client);
  return made->Create(parent, controlId, x, y, width, height, style, styleExt);
}

void QVLProxyView::SetClient(IQVLTreeViewClient* newClient) {
  client = newClient;
  if (implementation) implementation->SetClient(newClient);
}

void QVLProxyView::Destroy() {
  if (implementation) implementation->Destroy();
}

int QVLProxyView::GetViewType() {
  return implementation ? implementation->GetViewType() : QVLVT_NONE;
}

bool QVLProxyView::SetImageList(HIMAGELIST images) {
  return implementation ? implementation->SetImageList(images) : false;
}

bool QVLProxyView::UseSystemImageList() {
  return implementation ? implementation->UseSystemImageList() : false;
}

bool QVLProxyView::SetStateImageList(HIMAGELIST images) {
  return implementation ? implementation->SetStateImageList(images) : false;
}

bool QVLProxyView::SetBkColor(COLORREF color) {
  return implementation ? implementation->SetBkColor(color) : false;
}

bool QVLProxyView::SetTextColor(COLORREF color) {
  return implementation ? implementation->SetTextColor(color) : false;
}

void QVLProxyView::SetMultiSelect(bool enabled) {
  if (implementation) implementation->SetMultiSelect(enabled);
}

bool QVLProxyView::GetMultiSelect() {
  return implementation ? implementation->GetMultiSelect() : false;
}

HWND QVLProxyView::GetControlWindow() {
  return implementation ? implementation->GetControlWindow() : nullptr;
}

bool QVLProxyView::Move(int x, int y, int width, int height) {
  return implementation ? implementation->Move(x, y, width, height) : false;
}

void QVLProxyView::DeleteAllItems() {
  if (implementation) implementation->DeleteAllItems();
}

void QVLProxyView::Hide() {
  if (implementation) implementation->Hide();
}

void QVLProxyView::Show() {
  if (implementation) implementation->Show();
}

void QVLProxyView::Redraw() {
  if (implementation) implementation->Redraw();
}

bool QVLProxyView::GetScrollPosition(int* x, int* y) {
  return implementation ? implementation->GetScrollPosition(x, y) : false;
}

void QVLProxyView::SetScrollPosition(int x, int y) {
  if (implementation) implementation->SetScrollPosition(x, y);
}

void QVLProxyView::SetToolTipWidth(int width) {
  if (implementation) implementation->SetToolTipWidth(width);
}

void QVLProxyView::SetToolTipDelay(int delay) {
  if (implementation) implementation->SetToolTipDelay(delay);
}

ItemHandle QVLProxyView::InsertItem(QVLTreeViewItem* item, ItemHandle parent) {
  return implementation ? implementation->InsertItem(item, parent) : 0;
}

bool QVLProxyView::UpdateItem(QVLTreeViewItem* item, ItemHandle handle) {
  return implementation ? implementation->UpdateItem(item, handle) : false;
}

bool QVLProxyView::DeleteItem(ItemHandle handle) {
  return implementation ? implementation->DeleteItem(handle) : false;
}

std::int64_t QVLProxyView::GetItems(ItemHandleList* items, bool visibleOnly) {
  return implementation ? implementation->GetItems(items, visibleOnly) : 0;
}

ItemHandle QVLProxyView::GetParentItem(ItemHandle handle) {
  return implementation ? implementation->GetParentItem(handle) : -1;
}

ItemHandle QVLProxyView::GetFirstChildItem(ItemHandle handle) {
  return implementation ? implementation->GetFirstChildItem(handle) : -1;
}

ItemHandle QVLProxyView::GetNextSiblingItem(ItemHandle handle) {
  return implementation ? implementation->GetNextSiblingItem(handle) : -1;
}

void QVLProxyView::ExpandItem(ItemHandle handle, bool expand) {
  if (implementation) implementation->ExpandItem(handle, expand);
}

bool QVLProxyView::IsItemExpanded(ItemHandle handle) {
  return implementation ? implementation->IsItemExpanded(handle) : false;
}

void QVLProxyView::ExpandAll() {
  if (implementation) implementation->ExpandAll();
}

void QVLProxyView::CollapseAll() {
  if (implementation) implementation->CollapseAll();
}

void QVLProxyView::EnsureVisible(ItemHandle handle) {
  if (implementation) implementation->EnsureVisible(handle);
}

ItemHandle QVLProxyView::HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) {
  return implementation ? implementation->HitTest(screenPoint, select, hitFlags) : 0;
}

std::int64_t QVLProxyView::GetItemClientPtr(ItemHandle handle) {
  return implementation ? implementation->GetItemClientPtr(handle) : 0;
}

int QVLProxyView::GetSelectedCount() {
  return implementation ? implementation->GetSelectedCount() : 0;
}

ItemHandle QVLProxyView::GetSelectedItem(int index) {
  return implementation ? implementation->GetSelectedItem(index) : 0;
}

void QVLProxyView::SetItemSelected(ItemHandle handle, bool selected) {
  if (implementation) implementation->SetItemSelected(handle, selected);
}

bool QVLProxyView::IsItemSelected(ItemHandle handle) {
  return implementation ? implementation->IsItemSelected(handle) : false;
}

void QVLProxyView::SelectAll() {
  if (implementation) implementation->SelectAll();
}

void QVLProxyView::ClearSelection() {
  if (implementation) implementation->ClearSelection();
}

void QVLProxyView::InvertSelection() {
  if (implementation) implementation->InvertSelection();
}

int QVLProxyView::GetCheckedCount() {
  return implementation ? implementation->GetCheckedCount() : 0;
}

ItemHandle QVLProxyView::GetCheckedItem(int index) {
  return implementation ? implementation->GetCheckedItem(index) : 0;
}

void QVLProxyView::SetItemChecked(ItemHandle handle, bool checked) {
  if (implementation) implementation->SetItemChecked(handle, checked);
}

bool QVLProxyView::IsItemChecked(ItemHandle handle) {
  return implementation ? implementation->IsItemChecked(handle) : false;
}

void QVLProxyView::CheckAll() {
  if (implementation) implementation->CheckAll();
}

void QVLProxyView::UncheckAll() {
  if (implementation) implementation->UncheckAll();
}

bool QVLProxyView::ShowContextMenu(int x, int y) {
  return implementation ? implementation->ShowContextMenu(x, y) : false;
}
