// Puts a directory's model into a view.
#ifndef DEMO_VIEW_FILLER_H
#define DEMO_VIEW_FILLER_H

#include <functional>

#include "directory_model.h"
#include "qvl.h"

namespace demo {

// How the demo makes its views; labels that can be edited come on top of this.
constexpr std::uint32_t TREE_STYLE = QVLS_SHOWSELALWAYS | QVLS_CHECKBOXES | QVLS_HASBUTTONS |
                                     QVLS_HASLINES | QVLS_LINESATROOT | QVLS_INFOTIP;
constexpr std::uint32_t LIST_STYLE =
    QVLS_LISTVIEW | QVLS_SHOWSELALWAYS | QVLS_CHECKBOXES | QVLS_INFOTIP | QVLS_SORTHEADER;

// Nothing is painted between construction and end; then all is, once.
class RedrawPause {
 public:
  explicit RedrawPause(IQVLTreeView& view);
  ~RedrawPause();

  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;

 private:
  IQVLTreeView& view;
};

struct FillSteps {
  std::function<void(std::size_t done)> progress;                     // may be empty
  std::function<void(ItemHandle item, const Entry& entry)> decorate;  // may be empty
};

// Empties the view and fills it with all entries that were not removed. A tree shows its root
// expanded; in a list the rows below a directory follow it, indented.
void FillView(IQVLTreeView& view, const DirectoryModel& model, const FillSteps& steps);

// Ticks the first files of the directory.
void TickFirstFiles(DirectoryModel& model, int count);

}  // namespace demo

#endif
