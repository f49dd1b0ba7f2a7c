// The library's own HINSTANCE.
#ifndef QVL_CORE_MODULE_HANDLE_H
#define QVL_CORE_MODULE_HANDLE_H

#include <windows.h>

// Stored once at process attach; window classes and windows are made with it.
extern HINSTANCE moduleHandle;

#endif
