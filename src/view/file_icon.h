// What the shell says of a file's icon, by its name alone: the file need not exist.
#pragma once

#include "core/qvl.h"

struct FileIcon {
  HIMAGELIST systemList;  // null if the shell gave no answer
  int index;              // into systemList; 0 without an answer
};

// The icon of a new item. A record of type 1 is asked for by base name and extension alone. A name
// too long for the shell is asked for by its end, so that its type's icon is found.
FileIcon IconOfNewItem(const QVLTreeViewItem& item);

// The icon of an existing item, asked for by the whole file name.
FileIcon IconOfItem(const QVLTreeViewItem& item);

// The system's list of small icons, or null.
HIMAGELIST SystemIconList();
