#pragma once

#include <QString>

namespace quorrin {

// File dialogs start where the person last had a file of the same kind, in an earlier run too.

inline constexpr auto prints = "Prints";
/// The kind of a file by its name, or of a filter like "Maps (*.qrnm)".
const char* kindOfFile(const QString& nameOrFilter);
/// The folder of the last file of that kind; else that of the last file of this run, or that of documents.
QString startFolder(const char* kind);
/// Takes the folder of this file for that of its kind from now on. The state folder keeps it for the next run.
void rememberFolder(const char* kind, const QString& file);

} // namespace quorrin
