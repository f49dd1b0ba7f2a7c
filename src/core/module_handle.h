// The library's own HINSTANCE.
#pragma once

#include <windows.h>

// Stored once at process attach; window classes and windows are made with it.
extern HINSTANCE moduleHandle;
