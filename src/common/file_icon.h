// Looks up the shell's icon of a file by its name alone. The file need not exist.
#pragma once

#include "core/qvl.h"

struct FileIcon {
  HIMAGELIST systemList;  // null if the shell has no icon
  int index;              // into systemList; 0 if the shell has no icon
};

// The icon of a new item. For a record of type 1 only base name and extension are used. Of a name
// that is too long for the shell the end is used, so that the icon is that of the file's type.
FileIcon IconOfNewItem(const QVLTreeViewItem& item);

// The icon of an existing item, by its whole file name.
FileIcon IconOfItem(const QVLTreeViewItem& item);

// The system's list of small icons, or null.
HIMAGELIST SystemIconList();
