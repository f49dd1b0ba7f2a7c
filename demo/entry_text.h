// How an entry's size and time are written.
#ifndef DEMO_ENTRY_TEXT_H
#define DEMO_ENTRY_TEXT_H

#include "directory_model.h"
#include "text.h"

namespace demo {

// "1,234", empty for a directory.
WideText SizeText(const Entry& entry);

// "2024-05-06 07:08" in local time.
WideText TimeText(const Entry& entry);

// Path, size and time, a line each.
WideText TipText(const Entry& entry);

}  // namespace demo

#endif
