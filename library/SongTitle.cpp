#include "library/SongTitle.h"

#include "library/c_ID3.h"
#include "platform/Text.h"

#include <algorithm>

namespace library {

bool HasVisible(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return !c.isSpace() && c.category() != QChar::Other_Control &&
               c.category() != QChar::Other_Format;
    });
}

QString SongTitle(const c_ID3& tag, const std::filesystem::path& song) {
    const QString path = platform::ShownText(song);
    for (const QString& title :
         {tag.Title(), c_ID3::TitleFromFileName(song), platform::AfterLastSeparator(path)}) {
        if (HasVisible(title))
            return title;
    }
    return path;
}

} // namespace library
