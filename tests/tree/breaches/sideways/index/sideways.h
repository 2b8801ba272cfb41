#pragma once

#include "library/progress.h"
