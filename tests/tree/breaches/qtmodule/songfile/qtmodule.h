#pragma once

#include <QtWidgets/QWidget>
