// The identifiers of the interfaces.
#include <shlobj.h>

const IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDataObject = {0x0000010E, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropSource = {0x00000121, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IDropTarget = {0x00000122, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IShellFolder = {0x000214E6, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu = {0x000214E4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID IID_IContextMenu2 = {0x000214F4, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
