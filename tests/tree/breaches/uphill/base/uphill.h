#pragma once

#include "songfile/songinfo.h"
