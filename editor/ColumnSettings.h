#pragma once

class c_PicList;

namespace editor {

/// Gives the list's columns the widths that the player left them with, and keeps what the player
/// changes for the next time.
void RememberColumns(c_PicList& list);

} // namespace editor
