#pragma once

#include <QString>
#include <filesystem>

class QWidget;

namespace toolkit {

/// Asks for a folder, starting at `startFolder`, and returns its path as from
/// `platform::TextFromPath`, without a separator at the end; "" if cancelled.
QString BrowseForFolder(QWidget* owner, const QString& title,
                        const std::filesystem::path& startFolder);

/// Makes a folder the current one, where the file dialogs start; an empty path stands for the
/// user's documents. A path of up to 3 characters, or to a folder that does not exist, changes
/// nothing.
void ChangeToFolder(const std::filesystem::path& folder);

} // namespace toolkit
