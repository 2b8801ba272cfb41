#pragma once

#include "../app/mainwindow.h"
