// One of the two sides of a measurement: the library, or a bare control with a minimal program
// around it that does the same work by messages.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

enum class Kind { kList, kTree };

struct Filling {
  bool suspended;  // the host suspends drawing
  bool expanded;   // tree: each branch is expanded after its first child
};

// Each operation works on all items. In a tree each hundredth item is a branch at the top level,
// and the next 99 items are in it.
class Side {
 public:
  static constexpr int kBranch = 100;
  static constexpr int kControlId = 100;

  virtual ~Side() = default;

  virtual HWND Control() const = 0;

  virtual void Fill(int count, const Filling& filling) = 0;
  virtual void ExpandAll() = 0;
  virtual void Walk() = 0;
  virtual void GetItems() = 0;
  virtual void SelectAll() = 0;
  virtual void SelectAllRedrawing() = 0;  // bare control: without suspended drawing
  virtual void ClearSelection() = 0;
  virtual void InvertSelection() = 0;
  virtual void ShiftPress(LPARAM point) = 0;
  virtual void CheckAll() = 0;
  virtual void GetCheckedCount() = 0;
  virtual void BeginDrag() = 0;
  virtual void DeleteAllItems() = 0;

  // Callbacks so far, and items that the last walk or query found.
  std::int64_t calls = 0;
  std::int64_t found = 0;
};

// Each side fills its part of the host's window.
std::unique_ptr<Side> MakeLibrarySide(Kind kind, bool icons, HWND host, const RECT& place);
std::unique_ptr<Side> MakeBareList(bool icons, HWND host, const RECT& place);
std::unique_ptr<Side> MakeBareTree(bool icons, HWND host, const RECT& place);

// File names with 40 different extensions.
const std::vector<std::wstring>& FileNames();
