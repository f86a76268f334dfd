#include "toolkit/PackedText.h"

#include <algorithm>
#include <cstring>

namespace toolkit {

PackedText::PackedText(const QString& text)
    : mWide(std::ranges::any_of(text, [](QChar c) { return c > QChar(0xFF); })) {
    if (mWide)
        mBytes = QByteArray(reinterpret_cast<const char*>(text.constData()),
                            text.size() * static_cast<qsizetype>(sizeof(QChar)));
    else
        mBytes = text.toLatin1();
}

QString PackedText::Unpacked() const {
    if (!mWide)
        return QString::fromLatin1(mBytes);
    QString text(mBytes.size() / static_cast<qsizetype>(sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), mBytes.constData(), static_cast<std::size_t>(mBytes.size()));
    return text;
}

} // namespace toolkit
