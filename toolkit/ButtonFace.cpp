#include "toolkit/ButtonFace.h"

#include "toolkit/Drawing.h"
#include "toolkit/FittedText.h"
#include "toolkit/Form.h"

namespace toolkit {

void CopyFormBehind(PictureBox& box) {
    // One more pixel each way: at a fractional ratio the box may cover one more screen pixel.
    const QRect place = box.Place();
    if (auto* form = qobject_cast<Form*>(box.parentWidget()))
        BitBlt(box.Dc(), 0, 0, place.width() + 1, place.height() + 1, form->Dc(), place.x(),
               place.y(), RasterOp::SrcCopy);
}

void DrawButtonCaption(PictureBox& box, const QString& caption, ColorRef color, ColorRef shadow,
                       int margin) {
    if (caption.isEmpty())
        return;
    const Hdc dc = box.Dc();
    const QFont own = dc->Font();
    const FittedText fitted = FitText(caption, own, box.Width() - 2 * margin);
    dc->SetFont(fitted.font);
    const double x = box.Width() / 2.0 - fitted.width / 2;
    const double y = box.Height() / 2.0 - dc->TextHeight() / 2 - 2;
    Drawing(dc).Text(fitted.text, color, shadow, x, y, 2);
    dc->SetFont(own);
}

} // namespace toolkit
