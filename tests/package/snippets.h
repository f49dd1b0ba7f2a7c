// The names that the code blocks of the guides leave to the reader's program. A block becomes the
// body of a function, or a part of a class derived from GuideClient.
#pragma once

#include <qvl_host.h>

#include <ole2.h>

#include <string>

extern HWND window;
extern IQVLTreeView* view;
extern HFONT font;
extern MSG message;

class GuideClient : public qvl::Client {
 protected:
  bool Rename(ItemHandle item, const WCHAR* text);
  std::basic_string<WCHAR> PathOf(ItemHandle item);

  bool renaming = false;
};
