#pragma once

#include "qvl.h"

#include <functional>
#include <string>
#include <vector>

// Gives a number from 0 to below the limit.
using Choices = std::function<int(int limit)>;

// A visible window for views.
HWND MakeHostWindow();
void HandleMessages();

// A host that runs operations on its view with random arguments, and the view's client. Derived
// hosts choose other arguments.
class RandomHost : public IQVLTreeViewClient {
 public:
  RandomHost(HWND hostWindow, bool asList, Choices choices);
  virtual ~RandomHost();
  RandomHost(const RandomHost&) = delete;
  RandomHost& operator=(const RandomHost&) = delete;

  int Below(int limit) const { return choose(limit); }
  bool OneIn(int chances) const { return Below(chances) == 0; }

  // Creates the view's control and inserts some items.
  virtual void Create();
  virtual ItemHandle Insert();
  void Fill(QVLTreeViewItem& record);

  bool IsList() const { return view && view->GetViewType() == 2; }
  HWND Control() const { return view ? view->GetControlWindow() : nullptr; }

  // All items from top to bottom, collapsed or not.
  ItemHandleList Items() const;
  // Whether the item is in no collapsed branch of a tree.
  bool IsShown(ItemHandle item) const;
  // A name of the item that is the same on all platforms.
  std::string Name(ItemHandle item) const;

  // An item of the view, or sometimes -1.
  virtual ItemHandle Item();
  // From the first to the last, both included.
  virtual int Number(int first, int last);
  virtual std::basic_string<WCHAR> Text();
  // On the item's label if it is scrolled into view, otherwise below all items.
  virtual POINT Point(ItemHandle item);
  virtual WPARAM Key();
  // The real control computes wrong rows after a hidden item is collapsed.
  virtual bool MayExpand(ItemHandle item, bool expand);

  IQVLTreeView* view = nullptr;
  HWND host;
  bool list;  // what the next Create creates
  bool undisturbed =
      false;  // no reactions: during a gesture of the real list that must not be interrupted
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
  static constexpr int kControlId = 7;

  // Gets every callback as text. The result is the client's answer.
  virtual bool OnCallback(const std::string& call) = 0;
  // Gives the file names for a drag or a menu. The default is none.
  virtual void NameFiles(FileNameList*) {}

 private:
  void AddBranch(ItemHandle item, ItemHandleList& items) const;

  Choices choose;
  std::basic_string<WCHAR> tip;
  int records = 0;
};
