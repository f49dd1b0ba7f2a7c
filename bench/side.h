// One of the two that are measured against each other: the library, or a bare control with the
// least of a program around it that does the same work by messages of its own.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

enum class Kind { LIST, TREE };

struct Filling {
  bool suspended;  // the host suspends drawing meanwhile
  bool expanded;   // tree: branches are expanded with their first child, before the others come
};

// Each operation works on all items. In a tree one item in a hundred is a branch at the top level
// that holds the following 99.
class Side {
 public:
  static constexpr int kBranch = 100;
  static constexpr int kControlId = 100;

  virtual ~Side() = default;

  virtual HWND Control() const = 0;
  virtual std::string Name() const = 0;

  virtual void Fill(int count, const Filling& filling) = 0;
  virtual void ExpandAll() = 0;
  virtual void Walk() = 0;
  virtual void GetItems() = 0;
  virtual void SelectAll() = 0;
  virtual void SelectAllRedrawing() = 0;  // the library has no such thing and does as always
  virtual void ClearSelection() = 0;
  virtual void InvertSelection() = 0;
  virtual void ShiftPress(LPARAM point) = 0;
  virtual void CheckAll() = 0;
  virtual void GetCheckedCount() = 0;
  virtual void BeginDrag() = 0;
  virtual void DeleteAllItems() = 0;

  // What the client has heard so far, and the items that the last walk or question came upon.
  std::int64_t calls = 0;
  std::int64_t found = 0;
};

// Both fill their part of the host's window.
std::unique_ptr<Side> MakeLibrarySide(Kind kind, bool icons, HWND host, const RECT& place);
std::unique_ptr<Side> MakeBareList(bool icons, HWND host, const RECT& place);
std::unique_ptr<Side> MakeBareTree(bool icons, HWND host, const RECT& place);

// File names of 40 extensions, to be taken in turn.
const std::vector<std::wstring>& FileNames();
