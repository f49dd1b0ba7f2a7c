// The library's own HINSTANCE.
#pragma once

#include <windows.h>

// Set once at process attach. Window classes and windows are created with it.
extern HINSTANCE moduleHandle;
