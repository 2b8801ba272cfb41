#pragma once

#include "database.h"
