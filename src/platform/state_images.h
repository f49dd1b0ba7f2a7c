// State images of items and rows: their number is in bits 12 to 15 of the state; 0 shows no box.
#pragma once

#include <windows.h>

constexpr UINT kStateImageShift = 12;
constexpr UINT kEmptyBox = 1;
constexpr UINT kCheckedBox = 2;
