#pragma once

namespace brisel
{

/// What a file has besides its content and its times. All of it by descriptor, so that no name can
/// lead elsewhere; on systems without these things nothing happens.

/// Copies from the open file \a from to the open file \a to: owner and group, extended attributes
/// and access control lists, permissions, and FAT's hidden and system attributes. What the system
/// refuses stays as it is. Where it refuses the group, the group that \a to has gets no
/// permissions.
void keepAttributes(int from, int to);

/// Copies the permissions alone.
void keepPermissions(int from, int to);

} // namespace brisel
