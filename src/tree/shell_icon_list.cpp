// The shell icons of trees: an image list of the library's own with the shell's small icons at the
// same indexes, one for all trees of the process.
#include "common/file_icon.h"
#include "platform/activation.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"

#include <algorithm>

namespace {

// Created when first needed and kept until the process ends.
HIMAGELIST SharedShellIconList = nullptr;

constexpr int kGrowth = 100;

void CreateSharedIconList(HIMAGELIST systemList) {
  int width = 0;
  int height = 0;
  activated::ImageList_GetIconSize(systemList, &width, &height);
  SharedShellIconList = activated::ImageList_Create(width, height, ILC_COLOR16, 0, kGrowth);
}

void CopyIcon(HIMAGELIST systemList, int index) {
  const HICON icon = activated::ImageList_GetIcon(systemList, index, ILD_NORMAL);
  activated::ImageList_ReplaceIcon(SharedShellIconList, -1, icon);
  DestroyIcon(icon);
}

}  // namespace

void QVLTreeView::EnsureSharedIconList(HIMAGELIST systemList) {
  if (SharedShellIconList) return;
  shellIconCount = 0;
  CreateSharedIconList(systemList);
}

// A view's count shows only whether the system list has changed since this view last synchronised.
// If it has, the whole shared list is rebuilt, whatever other views did meanwhile.
void QVLTreeView::SyncSharedIconList(HIMAGELIST systemList) {
  EnsureSharedIconList(systemList);
  if (!SharedShellIconList) return;
  const int count = activated::ImageList_GetImageCount(systemList);
  if (shellIconCount != count) {
    activated::ImageList_Remove(SharedShellIconList, -1);
    shellIconCount = 0;
  }
  for (int index = shellIconCount; index < count; ++index) CopyIcon(systemList, index);
  shellIconCount = count;
}

// Images that are in the list already keep the background that they were copied with.
void QVLTreeView::SetSharedIconListBkColor(COLORREF color) {
  if (!SharedShellIconList) {
    shellIconCount = 0;
    const HIMAGELIST systemList = SystemIconList();
    if (systemList) CreateSharedIconList(systemList);
  }
  if (SharedShellIconList) activated::ImageList_SetBkColor(SharedShellIconList, color);
}

bool QVLTreeView::UseSystemImageList() {
  if (!controlWindow) return false;
  const HIMAGELIST systemList = SystemIconList();
  if (!systemList) return false;
  SyncSharedIconList(systemList);
  SetSharedIconListBkColor(bkColor);
  TreeControl::SetImageList(controlWindow, TVSIL_NORMAL, SharedShellIconList);
  usingSystemImages = true;
  return true;
}

int QVLTreeView::ImageOfNewItem(const QVLTreeViewItem& item) {
  return usingSystemImages ? SharedImage(IconOfNewItem(item)) : item.GetImageIndex();
}

int QVLTreeView::ImageOfItem(const QVLTreeViewItem& item) {
  return usingSystemImages ? SharedImage(IconOfItem(item)) : item.GetImageIndex();
}

// Image 0 if the shell has no icon.
int QVLTreeView::SharedImage(const FileIcon& icon) {
  if (!icon.systemList) return 0;
  SyncSharedIconList(icon.systemList);
  return std::min(icon.index, shellIconCount);
}
