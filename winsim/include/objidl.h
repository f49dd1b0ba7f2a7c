// Part of the drag and drop interfaces.
#pragma once

#include "ole2.h"
