#pragma once

#include <QWidget>

#include <memory>

namespace brisel
{

/// The plan of a transfer of the sample songs, of which the memory has two names.
std::unique_ptr<QWidget> makePlanWindow();

} // namespace brisel
