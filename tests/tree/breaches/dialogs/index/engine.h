#pragma once

#include "index/dialogs/rundialog.h"
