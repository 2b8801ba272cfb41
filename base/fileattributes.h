#pragma once

namespace brisel
{

/// The attributes of a file besides its content and its times. All functions use descriptors, so
/// that names can't be redirected; on systems without these attributes they do nothing.

/// Copies from the open file \a from to the open file \a to: owner and group, extended attributes
/// and access control lists, permissions, and FAT's hidden and system attributes. Attributes that
/// the system refuses to set are unchanged. If it refuses the group, the group of \a to gets no
/// permissions.
void keepAttributes(int from, int to);

/// Copies only the permissions.
void keepPermissions(int from, int to);

} // namespace brisel
