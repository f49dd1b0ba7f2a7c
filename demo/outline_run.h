// The demo without its window: fills a view and prints what the view then says it holds.
#ifndef DEMO_OUTLINE_RUN_H
#define DEMO_OUTLINE_RUN_H

#include <string>

#include "directory_model.h"
#include "qvl.h"

namespace demo {

struct Options;

// Reads the directory; false, and says why on the standard error, if it can't be read.
bool ReadDirectory(const Options& options, DirectoryModel& model,
                   const DirectoryModel::Progress& progress);

// All items with their boxes, a line each, indented by depth, found through the view's own
// operations; the model only gives names to what the view answers.
std::string Outline(IQVLTreeView& view, const DirectoryModel& model);

// Result: the exit status of the program.
int RunOutline(const Options& options);

}  // namespace demo

#endif
