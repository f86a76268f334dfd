#pragma once

#include <QByteArray>
#include <QString>

namespace toolkit {

/// A text that takes half the memory if it holds nothing but Latin-1.
class PackedText {
public:
    PackedText() = default;
    explicit PackedText(const QString& text);

    QString Unpacked() const;

private:
    QByteArray mBytes; // Latin-1 or UTF-16
    bool mWide = false;
};

} // namespace toolkit
