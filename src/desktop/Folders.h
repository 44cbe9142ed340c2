#pragma once

#include "toolkit/Files.h"

#include <QString>

namespace quorrin {

// File dialogs start where the person last had a file of the same kind, in an earlier run too.

/// The kinds of file: maps and the prints beside them, and pictures.
enum class FileKind { Map, Picture };

/// The kind of a file by its name, or of those that a filter like "Maps (*.qrnm)" lets through.
FileKind kindOfFile(const QString& nameOrFilter);
/// The folder of the last file of that kind; else that of the last file of this run, or that of documents.
std::string startFolder(FileKind kind);
/// Takes the folder of this file for that of its kind from now on. The state folder keeps it for the next run.
void rememberFolder(FileKind kind, const FolderItem& file);
void rememberFolderOf(const FolderItem& file);

} // namespace quorrin
