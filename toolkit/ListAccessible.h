#pragma once

class c_PicList;

namespace toolkit {

class PictureBox;

/// Makes `box` the table of `list` for screen readers, for as long as the list lives.
void MakeListAccessible(PictureBox* box, c_PicList* list);

/// Tell screen readers, when there are any, what has changed.
void AnnounceSelection(PictureBox& box, const c_PicList& list);
void AnnounceLineCount(PictureBox& box);

} // namespace toolkit
