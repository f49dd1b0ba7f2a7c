#pragma once

#include "qvl.h"
#include "support/recording_client.h"

#include <functional>
#include <string>
#include <vector>

// A view full of items in a window, with a client that agrees to everything: what an operation
// finds that is about to meet a failure.
class LibraryScene {
 public:
  explicit LibraryScene(bool asList);
  ~LibraryScene();
  LibraryScene(const LibraryScene&) = delete;
  LibraryScene& operator=(const LibraryScene&) = delete;

  void Create();
  ItemHandle Insert(const WCHAR* name, ItemHandle parent);
  HWND Control() const { return view->GetControlWindow(); }
  void Notify(NMHDR& header, UINT code) const;

  // The view takes items, selects and ticks them as on its first day.
  void ExpectUsable();

  HWND host = nullptr;
  IQVLTreeView* view = nullptr;
  RecordingClient client;
  ItemHandle first = -1;
  ItemHandle second = -1;
  const bool list;
};

struct LibraryOperation {
  std::string name;
  std::function<void(LibraryScene& scene)> run;
};

// Every operation and flow of the library that does something.
const std::vector<LibraryOperation>& LibraryOperations();
