// Part of the shell's interfaces.
#pragma once

#include "shlobj.h"
