#pragma once

class QFileDialog;

namespace toolkit {

/// Fills the side bar of one of Qt's own file dialogs with the folders where songs and playlists
/// are likely to be, as far as they exist.
void FillSideBar(QFileDialog& dialog);

} // namespace toolkit
