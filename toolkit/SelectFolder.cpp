#include "toolkit/SelectFolder.h"

#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "toolkit/FileDialog.h"

namespace toolkit {

QString BrowseForFolder(QWidget* owner, const QString& title,
                        const std::filesystem::path& startFolder) {
    FileDialog dialog(owner, title, platform::TextFromPath(startFolder));
    dialog.OfferFolders();
    return dialog.Choose().value(0);
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
