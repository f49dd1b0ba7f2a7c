// Access to the platform's notification records.
#pragma once

#include <windows.h>

// The longer record that begins with this header. The code determines which one it is.
template <class Record>
Record& As(NMHDR& header) {
  return reinterpret_cast<Record&>(header);
}

// Whether the notification comes from the child of that id. The platform widens ids with their
// sign.
inline bool ComesFrom(const NMHDR& header, int controlId) {
  return header.idFrom == static_cast<UINT_PTR>(static_cast<INT_PTR>(controlId));
}
