#pragma once

#include "library/backup.h"
