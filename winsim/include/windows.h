// The part of the platform's API that the project uses.
#pragma once

#include "windef.h"
#include "winerror.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"
