#pragma once

#include "qvl.h"

#include <functional>
#include <string>
#include <vector>

// Where choices come from: a number from 0 to below the limit. The same numbers make the same
// scenario on every platform.
using Choices = std::function<int(int limit)>;

// A shown window for views.
HWND MakeHostWindow();
void HandleQueuedMessages();

// A host with one view, and the view's client. Operations take their arguments from its choices.
class RandomHost : public IQVLTreeViewClient {
 public:
  RandomHost(HWND window, bool asList, Choices choices);
  virtual ~RandomHost();
  RandomHost(const RandomHost&) = delete;
  RandomHost& operator=(const RandomHost&) = delete;

  int Below(int limit) const { return choose(limit); }
  bool OneIn(int chances) const { return Below(chances) == 0; }

  // Makes the view's control with some items. False if it fails or a callback ends the view.
  bool Create();
  ItemHandle Insert();
  void Fill(QVLTreeViewItem& record);
  void Release();

  bool IsList() const { return view && view->GetViewType() == QVLVT_LIST; }
  HWND Control() const { return view ? view->GetControlWindow() : nullptr; }
  // A message to the control, as the user's input sends it.
  LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);

  // All items, from the top down, collapsed or not.
  ItemHandleList Items() const;
  // Whether no collapsed branch of a tree holds the item.
  bool IsShown(ItemHandle item) const;
  // The item by the number that its record got, because handles differ between platforms.
  std::string Name(ItemHandle item) const;
  // The items with their states, and the caret.
  std::string State() const;

  // An existing item, often that of the current callback, or sometimes -1.
  ItemHandle Item();
  // From first to last, both included.
  int Number(int first, int last);
  std::basic_string<WCHAR> Text();
  // On the item's label, or rarely its button, if it is in view; otherwise below all items.
  POINT Point(ItemHandle item);

  IQVLTreeView* view;
  HWND host;
  bool list;                // what the next Create makes
  bool editable = false;    // labels can be edited
  bool outOfRange = false;  // chooses deleted items, extreme numbers and any style too
  int listMessages = 0;     // that the list is handling
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

  // Every callback comes here. The result is the client's answer.
  virtual bool Called(const std::string& callback) = 0;
  // The files of a drag or a menu; none by default.
  virtual void NameFiles(FileNameList*) {}

 private:
  bool CalledAbout(const std::string& callback, ItemHandle item);
  void AddBranch(ItemHandle item, ItemHandleList& items) const;
  int AnyNumber();

  const Choices choose;
  ItemHandle subject = -1;  // the item of the current callback
  ItemHandleList inserted;  // deleted or not
  std::basic_string<WCHAR> tip;
};
