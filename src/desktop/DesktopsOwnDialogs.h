#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QFileDialog;

namespace quorrin {

/// Whether the desktop has file dialogs of its own, which Qt then shows instead of the built-in ones.
bool desktopHasFileDialogs();

/// The path that was chosen in the desktop's own save dialog, with the first of the extensions when it has none of
/// them; nothing when cancelled. The desktop asks before a file is replaced; about one that it could not know of, as
/// the extension was not typed, this asks.
std::optional<QString> chosenForSaving(QFileDialog& dialog, const QStringList& extensions);

/// Whether a file name ends in none of the extensions, though there are some.
bool lacksExtension(const QString& name, const QStringList& extensions);

} // namespace quorrin
