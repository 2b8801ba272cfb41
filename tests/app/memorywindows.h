#pragma once

#include <QWidget>

#include <memory>

namespace brisel
{

/// The window of the memory, with songs of which some are marked.
std::unique_ptr<QWidget> makeMemoryWindow();
/// With its folders.
std::unique_ptr<QWidget> makeMemoryFoldersWindow();

} // namespace brisel
