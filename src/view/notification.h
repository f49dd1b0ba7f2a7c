// Reading the platform's notification records.
#pragma once

#include <windows.h>

#include <commctrl.h>

// The longer record that begins with this header, as its code says.
template <class Record>
Record& As(NMHDR& header) {
  return reinterpret_cast<Record&>(header);
}

// The id is widened with its sign, as the platform does it.
inline bool ComesFrom(const NMHDR& header, int controlId) {
  return header.idFrom == static_cast<UINT_PTR>(static_cast<INT_PTR>(controlId));
}
