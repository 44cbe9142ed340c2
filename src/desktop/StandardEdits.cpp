#include "desktop/StandardEdits.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace quorrin {

namespace {

using Standard = MenuItem::Standard;

// What the two kinds of text widget call differently.

bool canUndo(const QLineEdit& line)
{
    return line.isUndoAvailable();
}
bool canUndo(const QPlainTextEdit& area)
{
    return area.document()->isUndoAvailable();
}
bool hasSelection(const QLineEdit& line)
{
    return line.hasSelectedText();
}
bool hasSelection(const QPlainTextEdit& area)
{
    return area.textCursor().hasSelection();
}
bool isEmpty(const QLineEdit& line)
{
    return line.text().isEmpty();
}
bool isEmpty(const QPlainTextEdit& area)
{
    return area.document()->isEmpty();
}
void deleteSelection(QLineEdit& line)
{
    line.del();
}
void deleteSelection(QPlainTextEdit& area)
{
    area.textCursor().removeSelectedText();
}

bool clipboardHasText()
{
    const QMimeData* data = QApplication::clipboard()->mimeData();
    return data && data->hasText();
}

template <typename Text>
bool canEditText(const Text& text, Standard command)
{
    if (!text.isEnabled() || !text.isVisible())
        return false;
    switch (command) {
    case Standard::Undo:
        return canUndo(text);
    case Standard::Cut:
    case Standard::Copy:
    case Standard::Delete:
        return hasSelection(text);
    case Standard::Paste:
        return clipboardHasText();
    case Standard::SelectAll:
        return !isEmpty(text);
    default:
        return false;
    }
}

template <typename Text>
void editText(Text& text, Standard command)
{
    switch (command) {
    case Standard::Undo:
        return text.undo();
    case Standard::Cut:
        return text.cut();
    case Standard::Copy:
        return text.copy();
    case Standard::Paste:
        return text.paste();
    case Standard::Delete:
        return deleteSelection(text);
    case Standard::SelectAll:
        return text.selectAll();
    default:
        return;
    }
}

} // namespace

bool isEditCommand(Standard command)
{
    return command >= Standard::Undo && command <= Standard::SelectAll;
}

bool canEdit(QWidget* widget, Standard command)
{
    if (const auto* line = qobject_cast<QLineEdit*>(widget))
        return canEditText(*line, command);
    const auto* area = qobject_cast<QPlainTextEdit*>(widget);
    return area && canEditText(*area, command);
}

void edit(QWidget* widget, Standard command)
{
    if (!canEdit(widget, command))
        return;
    if (auto* line = qobject_cast<QLineEdit*>(widget))
        editText(*line, command);
    else if (auto* area = qobject_cast<QPlainTextEdit*>(widget))
        editText(*area, command);
}

} // namespace quorrin
