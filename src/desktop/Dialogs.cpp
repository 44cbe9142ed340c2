#include "desktop/Dialogs.h"

#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopsOwnDialogs.h"
#include "desktop/FileUrls.h"
#include "desktop/Folders.h"
#include "desktop/QtText.h"

#include "toolkit/Errors.h"
#include "toolkit/Files.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace quorrin {

namespace {

QStringList extensionsOf(const FileType& type)
{
    return qtText(type.Extensions).split(';', Qt::SkipEmptyParts);
}

/// All kinds of file as one filter, as in "Bitmap, PNG (*.bmp *.png)"; none for any file.
QStringList nameFilters(const FileFilter& filter)
{
    if (filter.empty())
        return {};
    QStringList names;
    QStringList patterns;
    for (const FileType& type : filter) {
        names += qtText(type.Name);
        for (const QString& extension : extensionsOf(type))
            patterns += '*' + extension;
    }
    return {names.join(", ") + " (" + patterns.join(' ') + ')'};
}

/// A dialog that gives the typed name an extension when it has none of the filter's. Qt's own way adds none to
/// "Dark.Cave", which no open dialog would list then. Quotation marks become single ones, as Qt takes what stands
/// between them for a list of names.
class SaveDialog : public QFileDialog {
public:
    SaveDialog(QWidget* parent, QStringList extensions)
        : QFileDialog(parent, QStringLiteral("Save")), extensions_(std::move(extensions))
    {
        setOption(QFileDialog::DontUseNativeDialog);
        setAcceptMode(QFileDialog::AcceptSave);
    }

protected:
    void accept() override
    {
        if (auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            QString name = edit->text().trimmed().replace('"', '\'');
            if (name.isEmpty() || extensions_.contains(name, Qt::CaseInsensitive))
                return quorrin::MsgBox("Please type a name for the file.");
            if (isWithoutExtension(name))
                name += extensions_.constFirst();
            edit->setText(name);
        }
        const QString chosen = selectedFiles().value(0);
        if (!QFileInfo(chosen).isDir() && !canBeWritten(chosen))
            return;
        QFileDialog::accept();
    }

private:
    /// Says what is in the way.
    static bool canBeWritten(const QString& path)
    {
        std::string obstacle;
        try {
            if (TextOutputStream::Create(New<FolderItem>(QtBridge::plainPath(path)), obstacle))
                return true;
        } catch (const IOException& failure) {
            obstacle = failure.what();
        }
        quorrin::MsgBox(obstacle);
        return false;
    }
    bool isWithoutExtension(const QString& name) const
    {
        if (name.isEmpty() || QFileInfo(directory(), name).isDir())
            return false;
        return lacksExtension(name, extensions_);
    }
    QStringList extensions_;
};

std::unique_ptr<QFileDialog> saveDialog(bool desktops, const QStringList& extensions)
{
    if (!desktops)
        return std::make_unique<SaveDialog>(frontWidget(), extensions);
    auto dialog = std::make_unique<QFileDialog>(frontWidget(), QStringLiteral("Save"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    return dialog;
}

/// `name` is what a new file is proposed to be called. It comes last, as a filter gives the name that stands there its
/// own first extension.
void prepare(QFileDialog& dialog, const QStringList& filters, const QString& name = {})
{
    dialog.setDirectory(QtBridge::qtPath(startFolder(kindOfFile(filters.join(' ')))));
    if (!filters.empty())
        dialog.setNameFilters(filters);
    if (!name.isEmpty())
        dialog.selectFile(name);
}

std::optional<QString> chosenFile(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedUrls().isEmpty())
        return {};
    return qtPathOf(dialog.selectedUrls().constFirst());
}

Ref<FolderItem> taken(const std::optional<QString>& path, const QStringList& filters)
{
    if (!path)
        return nullptr;
    auto file = New<FolderItem>(QtBridge::plainPath(*path));
    rememberFolder(kindOfFile(filters.join(' ')), *file);
    return file;
}

/// Makes a message wide enough for its title, of which short messages would show a piece alone.
void fitToTitle(QMessageBox& box)
{
    constexpr int frameAndButtons = 160;
    box.setWindowTitle(QApplication::applicationDisplayName());
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid)
        return;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + frameAndButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

QWidget* frontWidget()
{
    if (QWidget* dialog = QApplication::activeModalWidget())
        return dialog;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() == Qt::Window)
            return window;
    return nullptr;
}

MessageDialog::Answer DesktopPlatform::Ask(const MessageDialog& question)
{
    using Answer = MessageDialog::Answer;
    QMessageBox box(frontWidget());
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(question.Message));
    if (question.Icon == MessageDialog::QuestionIcon)
        box.setIcon(QMessageBox::Question);
    const auto add = [&box](const DialogButton& button, QMessageBox::ButtonRole role) {
        return button.Visible ? box.addButton(qtText(button.Caption), role) : nullptr;
    };
    QPushButton* action = add(question.ActionButton, QMessageBox::AcceptRole);
    QPushButton* alternate = add(question.AlternateActionButton, QMessageBox::DestructiveRole);
    QPushButton* cancel = add(question.CancelButton, QMessageBox::RejectRole);
    box.setDefaultButton(action);
    box.setEscapeButton(cancel);
    fitToTitle(box);
    box.exec();
    if (action && box.clickedButton() == action)
        return Answer::Action;
    return alternate && box.clickedButton() == alternate ? Answer::Alternate : Answer::Cancel;
}

void DesktopPlatform::MsgBox(const std::string& message)
{
    QMessageBox box(frontWidget());
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(message));
    fitToTitle(box);
    box.exec();
}

Ref<FolderItem> DesktopPlatform::GetOpenFolderItem(const FileFilter& filter)
{
    QFileDialog dialog(frontWidget(), QStringLiteral("Open"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QStringList filters = nameFilters(filter);
    prepare(dialog, filters);
    return taken(chosenFile(dialog), filters);
}

/// Proposes a name, adds that name's extension (or else the filter's first) to what the person types without one, and
/// asks before an existing file is replaced.
Ref<FolderItem> DesktopPlatform::GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName,
                                                   std::size_t* chosenKind)
{
    const QString name = QtBridge::qtPath(defaultName);
    QStringList extensions;
    for (const FileType& type : filter)
        extensions += extensionsOf(type);
    const QString proposed = '.' + QFileInfo(name).suffix();
    if (proposed.size() > 1 && (extensions.isEmpty() || extensions.contains(proposed)))
        extensions.prepend(proposed);
    QStringList filters = nameFilters(filter);
    if (chosenKind) {
        filters.clear();
        for (const FileType& kind : filter)
            filters += nameFilters({kind});
    }
    const bool desktops = desktopHasFileDialogs();
    const auto dialog = saveDialog(desktops, extensions);
    prepare(*dialog, filters, name);
    auto file = taken(desktops ? chosenForSaving(*dialog, extensions) : chosenFile(*dialog), filters);
    if (chosenKind)
        *chosenKind = static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(dialog->selectedNameFilter())));
    return file;
}

} // namespace quorrin
