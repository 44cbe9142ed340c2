#include "desktop/Dialogs.h"

#include "desktop/DesktopPlatform.h"
#include "desktop/QtText.h"

#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <algorithm>

namespace quorrin {

namespace {

/// The folder of the last file that was chosen or handed over, at first that of documents.
QString& lastFolder()
{
    static QString folder;
    if (!QFileInfo(folder).isDir())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(folder).isDir())
        folder = QDir::homePath();
    return folder;
}

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
        setAcceptMode(QFileDialog::AcceptSave);
    }

protected:
    void accept() override
    {
        if (auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
            name->setText(name->text().replace('"', '\''));
            if (extensions_.contains(name->text().trimmed(), Qt::CaseInsensitive))
                return;
            if (isWithoutExtension(name->text()))
                name->setText(name->text() + extensions_.constFirst());
        }
        QFileDialog::accept();
    }

private:
    bool isWithoutExtension(const QString& name) const
    {
        if (extensions_.isEmpty() || name.isEmpty() || QFileInfo(directory(), name).isDir())
            return false;
        return std::none_of(extensions_.begin(), extensions_.end(),
                            [&](const QString& extension) { return name.endsWith(extension, Qt::CaseInsensitive); });
    }
    QStringList extensions_;
};

/// `name` is what a new file is proposed to be called. It comes last, as a filter gives the name that stands there its
/// own first extension.
Ref<FolderItem> chosenFile(QFileDialog& dialog, const QStringList& filters, const QString& name = {})
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setDirectory(lastFolder());
    if (!filters.empty())
        dialog.setNameFilters(filters);
    if (!name.isEmpty())
        dialog.selectFile(name);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return nullptr;
    auto file = New<FolderItem>(QtBridge::plainPath(dialog.selectedFiles().constFirst()));
    rememberFolderOf(*file);
    return file;
}

} // namespace

void rememberFolderOf(const FolderItem& file)
{
    lastFolder() = QFileInfo(QtBridge::qtPath(file.Path())).absolutePath();
}

QString currentFolder()
{
    return lastFolder();
}

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
    box.exec();
}

bool DesktopPlatform::SelectColor(Color& color, const std::string& prompt)
{
    QColorDialog dialog(QColor(color.red, color.green, color.blue), frontWidget());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(qtText(prompt));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    color = colorFromNumber(dialog.selectedColor().rgb() & 0xFFFFFF);
    return true;
}

Ref<FolderItem> DesktopPlatform::GetOpenFolderItem(const FileFilter& filter)
{
    QFileDialog dialog(frontWidget(), QStringLiteral("Open"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return chosenFile(dialog, nameFilters(filter));
}

/// Proposes a name, adds that name's extension (or else the filter's first) to what the person types without one, and
/// asks before an existing file is replaced.
Ref<FolderItem> DesktopPlatform::GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName,
                                                   std::size_t* chosenKind)
{
    const QString name = qtText(defaultName);
    QStringList extensions;
    for (const FileType& type : filter)
        extensions += extensionsOf(type);
    const QString proposed = '.' + QFileInfo(name).suffix();
    if (proposed.size() > 1 && (extensions.isEmpty() || extensions.contains(proposed)))
        extensions.prepend(proposed);
    SaveDialog dialog(frontWidget(), extensions);
    if (!chosenKind)
        return chosenFile(dialog, nameFilters(filter), name);
    QStringList kinds;
    for (const FileType& kind : filter)
        kinds += nameFilters({kind});
    auto file = chosenFile(dialog, kinds, name);
    *chosenKind = static_cast<std::size_t>(std::max<qsizetype>(0, kinds.indexOf(dialog.selectedNameFilter())));
    return file;
}

} // namespace quorrin
