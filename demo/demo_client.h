// The callback object: logs every callback and answers from the model.
#pragma once

#include <optional>
#include <string>

#include "call_log.h"
#include "directory_model.h"
#include "qvl_host.h"

namespace demo {

// The reactions that need the demo's window.
class IReactions {
 public:
  // The user asks for a context menu at that place of the screen; `item` is -1 for none.
  virtual void OpenContextMenu(int x, int y, ItemHandle item) = 0;

  // Makes the columns of a list.
  virtual void MakeColumns(HWND listWindow) = 0;

  // Answers a label edit, with the result of OnLabelEdit.
  virtual bool AnswerLabelEdit(const qvl::LabelEdit& edit) = 0;

  virtual void SortBy(Column column) = 0;

  // Shows a text to the user.
  virtual void ShowNotice(const std::wstring& text) = 0;

 protected:
  ~IReactions() = default;
};

// Client values of items are entry indexes plus 1, so that 0 means no entry.
inline std::int64_t ClientValue(EntryIndex entry) { return static_cast<std::int64_t>(entry) + 1; }
inline EntryIndex EntryOfValue(std::int64_t value) { return static_cast<EntryIndex>(value - 1); }

// The entry of an item, nothing for no item.
std::optional<EntryIndex> EntryOf(IQVLTreeView& view, ItemHandle item);

class DemoClient final : public IQVLTreeViewClient {
 public:
  // Without reactions the callbacks are only logged. All three must outlive the client.
  DemoClient(const DirectoryModel& shownModel, CallLog& callLog, IReactions* windowReactions)
      : model(shownModel), log(callLog), reactions(windowReactions) {}

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
  IReactions* reactions;
  std::wstring tip;  // must outlive the tool tip that shows it
  int depth = 0;
};

}  // namespace demo
