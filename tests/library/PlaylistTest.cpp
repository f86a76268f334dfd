#include "library/AnyList.h"
#include "library/c_M3U.h"
#include "platform/Time.h"
#include "tests/TemporaryFolder.h"

#include <utility>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

struct PlaylistTest : testing::Test {
    PlaylistTest() {
        for (const char* song : {"a.mp3", "Sub/Song One.mp3", "Sub/\xC3\x9C.mp3", "AC\\DC.mp3",
                                 "\xDC raw.mp3", "50%.mp3"})
            mFolder.Write(song, "");
        fs::create_directory_symlink("loop", mFolder.Path() / "loop");
    }

    /// The songs of a list with this name and these bytes, without the folder, each followed by a
    /// bar; "own", "foreign" or the error stands before them.
    std::string Read(const std::string& name, const std::string& bytes,
                     const std::stop_token& stop = {}) const {
        const fs::path file = mFolder.Write(name, bytes);
        std::string read;
        {
            c_M3U list;
            const library::ListRead got = library::ReadAnyList(file, list, stop);
            read = got.error ? "error " : got.foreign ? "foreign " : "own ";
            for (int i = 0; i < list.Count(); ++i) {
                const std::string song = list.FileName(i).string();
                const bool within = song.starts_with(mFolder.Path().string() + "/");
                read += song.substr(within ? mFolder.Path().string().size() + 1 : 0) + '|';
            }
            if (got.foreign)
                list.TakeUnplayed();
        }
        EXPECT_EQ(BytesOf(file), bytes);
        return read;
    }

    const TemporaryFolder mFolder;
    const fs::path mFile = mFolder.Path() / "list.m3u";
};

TEST_F(PlaylistTest, ListsOfAllKindsAreToldApartAndRead) {
    const std::string folder = mFolder.Path().string();
    const std::string utf8Mark = "\xEF\xBB\xBF";
    const struct {
        std::string bytes;
        std::string read;
        const char* name = "list.m3u";
    } cases[] = {
        // the program's own, as c_M3U has them
        {"#EXTM3U\r\n#Songrush:1\r\n/x/b.mp3\r\nA.MP3\r\n", "own /x/b.mp3|A.MP3|"},
        {"#EXTM3U\r\n#Songrush:0\r\n/x\nb\r\n#Songrush:0 bytes=9\r\n#h://\r\n/x\r\n",
         "own /x\nb|#h://\r\n/x|"},
        {"", "own "},
        {"#Songrush:0\r\nAC\\DC.mp3\r\n", "own AC\\DC.mp3|"},
        {"Sub\\song one.mp3\r\n", "foreign Sub/Song One.mp3|"},
        // line ends, comments, marks of byte order, by name
        {"#EXTM3U\n#EXTINF:1,A - B\na.mp3\n/gone.mp3", "foreign a.mp3|/gone.mp3|"},
        {"a.mp3\r\nSub/Song One.mp3\n  a.mp3 \t\n\n#x\rb.mp3\n",
         "foreign a.mp3|Sub/Song One.mp3|a.mp3|b.mp3|"},
        {utf8Mark + "a.mp3\r\n", "foreign a.mp3|"},
        {"\xFF\xFE"
         "a\0.\0m\0p\0003\0\r\0\n\0"s,
         "foreign a.mp3|"},
        {"\xFE\xFF\0a\0.\0m\0p\0003"s, "foreign a.mp3|"},
        {"a.mp3\r\n", "foreign a.mp3|", "list.M3U8"},
        // spellings
        {"SUB/song one.MP3\nsub\\SONG ONE.mp3\n./sub/../A.MP3\nsub/\xC3\xBC.mp3\n",
         "foreign Sub/Song One.mp3|Sub/Song One.mp3|./Sub/../a.mp3|Sub/\xC3\x9C.mp3|"},
        {"Sub/\xDC.mp3\nsub\\u\xCC\x88.mp3\n\xDC raw.mp3\n\xDC gone.mp3\n",
         "foreign Sub/\xC3\x9C.mp3|Sub/\xC3\x9C.mp3|\xDC raw.mp3|\xC3\x9C gone.mp3|"},
        {"AC\\DC.mp3\nac\\dc.mp3\nac\\x.mp3\nSub/Song%20One.mp3\n50%.mp3\na.mp3%00\n",
         "foreign AC\\DC.mp3|AC\\DC.mp3|ac/x.mp3|Sub/Song One.mp3|50%.mp3|a.mp3%00|"},
        {"loop/a.mp3\n" + std::string(5000, 'x') + "/a.mp3\n",
         "foreign loop/a.mp3|" + std::string(5000, 'x') + "/a.mp3|"},
        // addresses
        {"file://" + folder + "/Sub/Song%20One.mp3\r\nFILE://LocalHost" + folder +
             "/sub/%DC.mp3\r\n/x/y.mp3\r\n",
         "foreign Sub/Song One.mp3|Sub/\xC3\x9C.mp3|/x/y.mp3|"},
        {"  my-disk+1.x://h/a.mp3\r\n", "foreign "},
        {"c://a.mp3\r\nnot one://a\r\n", "own c://a.mp3|not one://a|"},
        {"http://x/a.mp3\nfile://other/a.mp3\nfile:///x%00.mp3\nfile://\nfile:///gone\n"
         "list.m3u\nother.PLS\n",
         "foreign /gone|"},
        // PLS
        {"[playlist]\nNumberOfEntries=3\nFile1=A.mp3\nTitle1=x\nfile2=Sub\\Song One.mp3\nFile3=\n",
         "foreign a.mp3|Sub/Song One.mp3|"},
        {"File1=a.mp3\r\n", "foreign a.mp3|", "list.pls"},
        // no lists
        {"ID3\x04\0\0\n"s, "error "},
        {"ID3\x04\0\0/a\r\n/b\r\n"s, "error "},
        {"\x7F@\x02\r\n/a\r\n", "error "},
        {utf8Mark + "\x01\x02", "error "},
        {"\xFF\xFE\xFF", "foreign "},
    };
    for (const auto& [bytes, read, name] : cases) {
        EXPECT_EQ(Read(name, bytes), read) << name << ": " << bytes;
        fs::remove(mFolder.Path() / name);
    }
    std::stop_source stop;
    stop.request_stop();
    for (const char* bytes : {"#Songrush:0\r\n/a.mp3\r\n", "#EXTINF:1\n/a.mp3\n"})
        EXPECT_EQ(Read("list.m3u", bytes, stop.get_token()), "error ") << "though stopped";
}

TEST_F(PlaylistTest, EveryKindOfLineIsReadAndWrittenBack) {
    const std::pair<std::string, std::string> cases[] = {
        // without the header that is written
        {"#EXTM3U\r\n#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n",
         "#Songrush:1\r\n/a b\r\n#Songrush:0\r\n/c\r\n"},
        {"#Songrush:1\r\n#EXTINF:1,x\r\nx\r\n\r\n   \r\nab\r\n", "#Songrush:1\r\nab\r\n"},
        {"  ab\t \r\n", "#Songrush:0\r\nab\t\r\n"},
        {"#Songrush:1\r\n#Songrush:0\r\nab\r\n#Songrush:1\r\n", "#Songrush:0\r\nab\r\n"},
        {"ab\ncd\n", "#Songrush:0\r\nab\ncd\n\r\n"},
        {"#Songrush: 7x\r\naa\r\n#Songrush:2.5\r\nbb\r\n",
         "#Songrush:7\r\naa\r\n#Songrush:2\r\nbb\r\n"},
        {"#Songrush:99999\r\nbb\r\n#Songrush:x\r\ncc\r\n",
         "#Songrush:32767\r\nbb\r\n#Songrush:0\r\ncc\r\n"},
        {"#Songrush:1 bytes=6\r\n a\r\n#b\r\ncd\r\n",
         "#Songrush:1 bytes=6\r\n a\r\n#b\r\n#Songrush:0\r\ncd\r\n"},
        // measures that end inside a line, beyond the end, that are no number or too big
        {"#Songrush:1 bytes=2\r\n abc\r\n", "#Songrush:1\r\nabc\r\n"},
        {"#Songrush:1 bytes=99\r\n abc", "#Songrush:1\r\nabc\r\n"},
        {"#Songrush:1 bytes=3x\r\n ab\r\n", "#Songrush:1\r\nab\r\n"},
        {"#Songrush:1 bytes=99999999999999999999\r\nab\r\n", "#Songrush:1\r\nab\r\n"},
    };
    for (const auto& [read, written] : cases) {
        mFolder.Write(mFile, read);
        c_M3U list;
        list.ReadFile(mFile);
        list.WriteFile(mFile);
        EXPECT_EQ(BytesOf(mFile), "#EXTM3U\r\n" + written) << read;
    }
}

TEST_F(PlaylistTest, TheClockDecidesTheOrderOfEachCycleWhichGoesOnInTheNextRun) {
    double clock = 1000;
    const auto old = platform::ReplaceTimeSource({[&clock] { return clock++; }, {}});
    mFolder.Write(mFile, "#Songrush:2\r\nxx\r\n11\r\n22\r\n33\r\n44\r\n55\r\n66\r\n");
    const auto play = [this](int songs) {
        c_M3U list;
        list.ReadFile(mFile);
        list.RandomizeList();
        std::string played;
        while (songs-- > 0)
            played += list.NextUnplayed().string() + ' ';
        return played;
    };
    EXPECT_EQ(play(4), "11 66 44 55 ");
    EXPECT_EQ(play(2 + 7), "22 33 44 22 55 66 11 xx 33 ");
    platform::ReplaceTimeSource(old);
}

TEST_F(PlaylistTest, AnEmptyListWritesNothingAndAMissingFileIsCreatedEmpty) {
    c_M3U list;
    list.ReadFile(mFile);
    EXPECT_EQ(BytesOf(mFile), "");
    EXPECT_EQ(list.NextUnplayed(), "");
    mFolder.Write(mFile, "#EXTM3U\r\n#x\r\n");
    list.WriteFile(mFile);
    EXPECT_EQ(BytesOf(mFile), "#EXTM3U\r\n#x\r\n");
    list.Add("/a");
    EXPECT_EQ(list.FileName(-1).string() + list.FileName(1).string(), "");
    list.ReadFile(mFolder.Path());
    EXPECT_EQ(list.Count(), 0) << "a folder cannot be read";
}

} // namespace
