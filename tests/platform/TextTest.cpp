#include "platform/Text.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(TextTest, BytesThatAreNoUtf8AreShownAsWindows1252) {
    EXPECT_EQ(platform::ShownText(std::string_view("caf\xE9 \x80")), QStringLiteral("café €"));
    EXPECT_EQ(platform::ShownText(std::string_view("\xC3\xB6 \xF6")), QStringLiteral("ö ö"));
}

TEST(TextTest, AllBytesOfWindows1252ComeBackAndWhatItLacksIsAQuestionMark) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const QString text = platform::TextFromWindows1252({all.constData(), 256});
    EXPECT_EQ(text.mid(0x9E, 2), QStringLiteral("žŸ"));
    EXPECT_EQ(platform::Windows1252FromText(text), all);
    EXPECT_EQ(platform::Windows1252FromText(QStringLiteral("aЖ🎵é")), "a??\xE9");
}

} // namespace
