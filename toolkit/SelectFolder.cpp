#include "toolkit/SelectFolder.h"

#include "platform/ProgramFolder.h"
#include "platform/Text.h"

#include <QDir>
#include <QFileDialog>

namespace toolkit {

QString BrowseForFolder(QWidget* owner, const QString& title,
                        const std::filesystem::path& startFolder) {
    QFileDialog dialog(owner, title, platform::TextFromPath(startFolder));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setFileMode(QFileDialog::Directory);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return QDir::toNativeSeparators(QDir::cleanPath(dialog.selectedFiles().value(0)));
}

void ChangeToFolder(const std::filesystem::path& folder) {
    const std::filesystem::path target = folder.empty() ? platform::DocumentsFolder() : folder;
    constexpr int kBareRoot = 3;
    if (platform::TextFromPath(target).size() <= kBareRoot)
        return;
    std::error_code ignored;
    std::filesystem::current_path(target, ignored);
}

} // namespace toolkit
