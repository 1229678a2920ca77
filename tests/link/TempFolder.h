#pragma once

#include "tests/support/TempFolder.h"
