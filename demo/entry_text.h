// How an entry's size and time are written.
#pragma once

#include <string>

#include "directory_model.h"

namespace demo {

// "1,234", empty for a directory.
std::wstring SizeText(const Entry& entry);

// "2024-05-06 07:08" in local time, empty if the time is unknown.
std::wstring TimeText(const Entry& entry);

// Path, size and time, a line each.
std::wstring TipText(const DirectoryModel& model, EntryIndex index);

}  // namespace demo
