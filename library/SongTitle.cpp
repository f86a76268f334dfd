#include "library/SongTitle.h"

#include "library/SongTag.h"
#include "platform/Text.h"

#include <QList>
#include <algorithm>
#include <string_view>

namespace library {

bool HasVisible(const QString& text) {
    constexpr std::u32string_view kBlankLetters = U"\u115F\u1160\u2800\u3164\uFFA0";
    const QList<uint> codes = text.toUcs4();
    return std::any_of(codes.begin(), codes.end(), [=](char32_t c) {
        const QChar::Category category = QChar::category(c);
        return !QChar::isSpace(c) && category != QChar::Other_Control &&
               category != QChar::Other_Format && kBlankLetters.find(c) == kBlankLetters.npos;
    });
}

QString SongTitle(const c_ID3& tag, const std::filesystem::path& song) {
    QString path = platform::ShownText(song);
    for (const QString& title :
         {tag.Title(), c_ID3::TitleFromFileName(song), platform::AfterLastSeparator(path)}) {
        if (HasVisible(title))
            return title;
    }
    return path;
}

QString SongTitle(const std::filesystem::path& song) {
    SongTag tag;
    tag.Read(song);
    return SongTitle(tag, song);
}

} // namespace library
