#pragma once

#include "qvl.h"

#include <functional>
#include <string>
#include <vector>

// Where the choices of a story come from: a number from 0 up to the limit. The same ones on every
// platform, if they come from dice.
using Choices = std::function<int(int limit)>;

// A shown window for views to stand in.
HWND MakeStoryWindow();
void PumpStory();

// A host that does one thing after another to its view, and the view's client. What it does is up
// to its choices; a player that wants to be nasty makes other ones.
class Player : public IQVLTreeViewClient {
 public:
  Player(HWND hostWindow, bool asList, Choices choices);
  virtual ~Player();
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  int Below(int limit) const { return choose(limit); }
  bool OneIn(int chances) const { return Below(chances) == 0; }

  // Makes the view's control, and fills it a little.
  virtual void Create();
  virtual ItemHandle Insert();
  void Fill(QVLTreeViewItem& record);

  bool IsList() const { return view && view->GetViewType() == 2; }
  HWND Control() const { return view ? view->GetControlWindow() : nullptr; }

  // All items, from the top down, collapsed or not.
  ItemHandleList Items() const;
  // Whether no collapsed branch of a tree holds the item.
  bool IsShown(ItemHandle item) const;
  // The item under the name that its record was given, or its number.
  std::string Name(ItemHandle item) const;

  // An item that is there, or now and then -1.
  virtual ItemHandle Item();
  // From the first to the last, both counted.
  virtual int Number(int first, int last);
  virtual std::basic_string<WCHAR> Text();
  // On the item's label if it is in view, else below all items.
  virtual POINT Point(ItemHandle item);
  virtual WPARAM Key();
  // Collapsing what a branch hides upsets the real control's idea of where its rows are.
  virtual bool MayExpand(ItemHandle item, bool expand);

  IQVLTreeView* view = nullptr;
  HWND host;
  bool list;                 // what the next Create makes
  bool undisturbed = false;  // in a gesture that the real list goes on with in its own way
  int openBrackets = 0;

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

 protected:
  static constexpr int CONTROL_ID = 7;

  // Every call of the view comes here; the result is the client's answer.
  virtual bool Heard(const std::string& call) = 0;
  // The names for a drag or a menu, of which there are none.
  virtual void NameFiles(FileNameList*) {}

 private:
  void AddBranch(ItemHandle item, ItemHandleList& items) const;

  Choices choose;
  std::basic_string<WCHAR> tip;
  int made = 0;
};
