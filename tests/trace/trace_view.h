#pragma once

#include "qvl.h"

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

// The same numbers on every platform.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine(seed) {}
  int Below(int limit) { return static_cast<int>(engine() % static_cast<std::uint32_t>(limit)); }
  bool OneIn(int chances) { return Below(chances) == 0; }

 private:
  std::mt19937 engine;
};

// One view of the story with its client. Writes a line for each call that the client hears, and
// answers and acts as the dice say.
class TraceView final : public IQVLTreeViewClient {
 public:
  using Write = std::function<void(const std::string& line)>;

  TraceView(std::string viewName, HWND hostWindow, Dice& sharedDice, Write write);
  ~TraceView();
  TraceView(const TraceView&) = delete;
  TraceView& operator=(const TraceView&) = delete;

  void Create(bool asList);
  bool IsList() const { return view->GetViewType() == 2; }
  HWND Control() const { return view->GetControlWindow(); }

  // All live items, from the top down, collapsed or not.
  ItemHandleList Items() const;
  // A live item, or now and then -1.
  ItemHandle AnyItem();
  // Whether no collapsed branch of a tree holds the item.
  bool IsShown(ItemHandle item) const;
  // Expands, or collapses what is shown: collapsing what a branch hides upsets the real control's
  // idea of where its rows are.
  void Expand(ItemHandle item, bool expand);
  // The item under the name that its record was given, or its number.
  std::string Name(ItemHandle item) const;
  std::string State() const;
  void WriteStateIfChanged();
  void Insert();
  void Fill(QVLTreeViewItem& record);

  IQVLTreeView* view;
  const std::string name;
  bool listening = true;
  bool reacts = true;  // to what it hears

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
  bool Heard(IQVLTreeView* from, const std::string& what);
  void React();
  void AddBranch(ItemHandle item, ItemHandleList& items) const;

  HWND host;
  Dice& dice;
  Write writeLine;
  int made = 0;
  int reacting = 0;
  std::string lastState;
};
