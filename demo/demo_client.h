// The callback object: writes every call down and answers from the directory's model.
#ifndef DEMO_DEMO_CLIENT_H
#define DEMO_DEMO_CLIENT_H

#include <optional>
#include <string>

#include "call_log.h"
#include "directory_model.h"
#include "qvl.h"
#include "text.h"

namespace demo {

// What only a host with a window can do about a call.
class IDesk {
 public:
  // A context menu is wanted at that place of the screen; (-1, -1) from the keyboard.
  virtual void OpenContextMenu(int x, int y, ItemHandle item) = 0;

  // Makes the columns of a list.
  virtual void MakeColumns(HWND listWindow, const RECT& clientRect) = 0;

  // Answers a label edit, with the meaning of OnLabelEdit.
  virtual bool AnswerLabelEdit(NMHDR* record, std::uint32_t code) = 0;

  virtual void SortBy(Column column) = 0;

  // Tells the user something in a line of text.
  virtual void ShowNotice(const WideText& text) = 0;

 protected:
  ~IDesk() = default;
};

// Client values of items are entry numbers from 1, so that 0 means no entry.
inline std::int64_t ClientValue(std::size_t entry) { return static_cast<std::int64_t>(entry) + 1; }

// The entry behind an item, nothing for no item.
std::optional<std::size_t> EntryOf(IQVLTreeView& view, ItemHandle item);

class DemoClient final : public IQVLTreeViewClient {
 public:
  // Without a desk the calls are only written down. All three outlive the client.
  DemoClient(const DirectoryModel& model, CallLog& log, IDesk* desk)
      : model(model), log(log), desk(desk) {}

  void OnContextMenu(IQVLTreeView* view, int x, int y, ItemHandle item,
                     std::uint32_t hitFlags) override;
  bool OnGetInfoTip(IQVLTreeView* view, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t hitFlags) override;
  bool OnBeginDrag(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override;
  bool OnCreateColumns(IQVLTreeView* view, HWND listWindow, RECT* clientRect) override;
  bool OnShellContextMenu(IQVLTreeView* view, ItemHandleList* items, FileNameList* files) override;
  bool OnLabelEdit(IQVLTreeView* view, NMHDR* record, std::uint32_t code) override;
  void OnBeginSelectionChange(IQVLTreeView* view) override;
  void OnItemSelectionChanged(IQVLTreeView* view, ItemHandle item) override;
  void OnEndSelectionChange(IQVLTreeView* view) override;
  void OnColumnClick(IQVLTreeView* view, int column) override;
  void OnItemExpanded(IQVLTreeView* view, ItemHandle item) override;

 private:
  void Note(const std::string& call);
  std::string NameOf(IQVLTreeView& view, ItemHandle item) const;
  bool CollectFiles(IQVLTreeView& view, const ItemHandleList& items, FileNameList& files,
                    std::string call);

  const DirectoryModel& model;
  CallLog& log;
  IDesk* desk;
  WideText tip;  // outlives the tool tip that shows it
  int depth = 0;
};

}  // namespace demo

#endif
