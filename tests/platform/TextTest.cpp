#include "platform/Text.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace std::string_literals;

const std::string kNames[] = {
    "",
    "/music/M\xC3\xB6tley/\xF0\x9F\x8E\xB5.mp3",
    "/what?/AC\\DC/a:b*c\"d\"/ e .mp3",
    "cut \xC3",
    "broken \xC3(\xF0\x9F\x8E in the middle",
    "surrogates \xED\xA0\x80\xED\xB2\x80",
    "overlong \xC0\x80",
    "\xFF\xEF\xBB\xBF"
    "byte order mark inside",
    "replacement \xEF\xBF\xBD and noncharacter \xEF\xB7\x90q",
    "controls \x01\x7F\r\n\t",
    " blanks  ",
};

TEST(PathTextTest, EveryNameComesBackAndHidesNoSeparator) {
    for (const std::string& name : kNames) {
        const QString text = platform::TextFromPath(name);
        EXPECT_EQ(platform::PathFromText(text), name);
        const QString escaped = platform::EscapeSeparators(text);
        EXPECT_FALSE(escaped.contains(u'?') || escaped.contains(u'\\')) << name;
        EXPECT_FALSE(escaped.endsWith(u' ')) << name;
        EXPECT_EQ(platform::UnescapeSeparators(escaped), text);
        const QString key = platform::KeyFromPath(name);
        EXPECT_EQ(platform::PathFromKey(key), name);
        EXPECT_FALSE(key.contains(u'/') || key.contains(u'\\')) << name;
        EXPECT_TRUE(platform::ShownText(std::string_view(name)).isValidUtf16()) << name;
    }
    EXPECT_EQ(platform::KeyFromPath("/a?/b.mp3").count(u'?'), 2);
}

TEST(ShownTextTest, BytesThatAreNoUtf8AreShownAsWindows1252) {
    EXPECT_EQ(platform::ShownText(std::string_view("caf\xE9 \x80")), QStringLiteral("café €"));
    EXPECT_EQ(platform::ShownText(std::string_view("\xC3\xB6 \xF6")), QStringLiteral("ö ö"));
}

TEST(Windows1252Test, AllBytesComeBackAndWhatItLacksIsAQuestionMark) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const QString text = platform::TextFromWindows1252({all.constData(), 256});
    EXPECT_EQ(text.mid(0x9E, 2), QStringLiteral("žŸ"));
    EXPECT_EQ(platform::Windows1252FromText(text), all);
    EXPECT_EQ(platform::Windows1252FromText(QStringLiteral("aЖ🎵é")), "a??\xE9");
}

} // namespace
