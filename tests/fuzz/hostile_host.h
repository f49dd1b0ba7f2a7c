#pragma once

#include "qvl.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

// Bytes that decide what happens; when they are used up everything is 0.
class ByteSource {
 public:
  ByteSource(const std::uint8_t* bytes, std::size_t length) : next(bytes), left(length) {}

  bool Empty() const { return left == 0; }
  std::uint8_t Byte();
  bool Bit() { return (Byte() & 1) != 0; }
  // Mostly small, now and then the greatest and smallest there are.
  int Number();
  std::basic_string<WCHAR> Text();

 private:
  const std::uint8_t* next;
  std::size_t left;
};

// A host that keeps none of its promises but those on which memory itself depends: it passes real
// records and lists. It ends, empties and remakes its view whenever it is called.
class HostileHost final : public IQVLTreeViewClient {
 public:
  HostileHost(const std::uint8_t* bytes, std::size_t length);
  ~HostileHost();
  HostileHost(const HostileHost&) = delete;
  HostileHost& operator=(const HostileHost&) = delete;

  void Play();

  void OnContextMenu(IQVLTreeView* from, int x, int y, ItemHandle item,
                     std::uint32_t hitFlags) override;
  bool OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t hitFlags) override;
  bool OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override;
  bool OnCreateColumns(IQVLTreeView* from, HWND listWindow, RECT* clientRect) override;
  bool OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override;
  bool OnLabelEdit(IQVLTreeView* from, NMHDR* record, std::uint32_t code) override;
  void OnBeginSelectionChange(IQVLTreeView* from) override;
  void OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) override;
  void OnEndSelectionChange(IQVLTreeView* from) override;
  void OnColumnClick(IQVLTreeView* from, int column) override;
  void OnItemExpanded(IQVLTreeView* from, ItemHandle item) override;

 private:
  void Act();
  void ActOnView(int action);
  void ActOnItem(int action, ItemHandle item);
  void Gesture(int gesture);
  void Create();
  void Release();
  void Insert(ItemHandle parent);
  void Fill(QVLTreeViewItem& record);
  ItemHandle Handle();
  HWND Control() const { return view ? view->GetControlWindow() : nullptr; }
  bool Called();
  bool NameFiles(FileNameList* files);

  ByteSource bytes;
  HWND host;
  IQVLTreeView* view;
  std::deque<ItemHandle> seen;
  std::basic_string<WCHAR> tip;
  int depth = 0;
  int actions = 0;
};
