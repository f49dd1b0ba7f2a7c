// Stands in for the platform's header of the same name.
#pragma once

#include "windef.h"
#include "winerror.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
