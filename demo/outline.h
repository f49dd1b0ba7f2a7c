// The demo without its window: fills a view and prints what the view then holds.
#pragma once

#include <string>

#include "call_log.h"
#include "directory_model.h"
#include "directory_reader.h"
#include "qvl_host.h"

namespace demo {

struct Options;

// Reads the directory. False, with a message to the standard error, if it cannot be read.
bool OpenDirectory(const Options& options, DirectoryModel& model, const ReadProgress& progress);

// Opens the log file, if there is to be one. False, with a message, if it cannot be made.
bool OpenLog(const Options& options, CallLog& log);

// All items with their boxes, a line each, indented by depth. They come from the view's operations;
// only the names come from the model.
std::string Outline(IQVLTreeView& view, const DirectoryModel& model);

// Result: the exit status of the program.
int RunOutline(const Options& options);

}  // namespace demo
