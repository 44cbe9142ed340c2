#pragma once

namespace quorrin {

/// From now on Qt's dialogs list files and folders whose names are no UTF-8, too, as QtBridge has their paths, and
/// enter, make, rename and remove them. By itself Qt leaves them out.
void allowAnyFileName();

} // namespace quorrin
