#pragma once

class c_PicList;

namespace toolkit {

class PictureBox;

/// Presents `box` to screen readers as a table of the list, for as long as the list lives.
void MakeListAccessible(PictureBox* box, c_PicList* list);

/// These tell screen readers, if there are any, what has changed.
void AnnounceCursor(PictureBox* box, const c_PicList& list);
void AnnounceLineCount(PictureBox& box);
/// The lines have other texts, or other places.
void AnnounceLines(PictureBox& box);

} // namespace toolkit
