#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string_view>
#include <system_error>
#include <vector>

/// A playlist with a played mark for each song, so that no song comes back before all have been
/// played. The marks are kept in the playlist file: the destructor of a list that was read writes
/// them back.
class c_M3U {
public:
    c_M3U() = default;
    ~c_M3U();
    c_M3U(const c_M3U&) = delete;
    c_M3U& operator=(const c_M3U&) = delete;

    /// Appends an unplayed song, which enters the play order with the next `RandomizeList`.
    void Add(const std::filesystem::path& song);

    /// Number of songs.
    int Count() const { return static_cast<int>(mFiles.size()); }

    /// Place in the cycle of play; 0 outside `NextUnplayed`.
    int TotalPlayed() const { return mCursor; }

    /// The song at `index`, 0-based, in list order; empty when there is none.
    std::filesystem::path FileName(int index) const;

    /// The next song to play, which then counts as played. When all have been, a new cycle begins
    /// in a new order. Empty for an empty list. Needs a `RandomizeList` after reading or adding.
    std::filesystem::path NextUnplayed() { return FileName(TakeUnplayed()); }

    /// As `NextUnplayed`, by index; -1 for an empty list.
    int TakeUnplayed();

    /// Makes a new random play order from the clock's seed. The marks stay.
    void RandomizeList();

    void ClearAllPlayed();

    /// The played marks in list order, 0 for songs not played.
    const std::vector<std::int16_t>& Marks() const { return mPlayed; }

    /// Sets all marks; `marks` has one for each song.
    void SetMarks(const std::vector<std::int16_t>& marks);

    /// Replaces the list by the file's contents and makes that file the one to write back to. A
    /// file that does not exist is created empty. An error, `illegal_byte_sequence` for what is not
    /// text or `operation_canceled` after a stop, leaves an empty list, which is never written
    /// back.
    std::error_code ReadFile(const std::filesystem::path& file, const std::stop_token& stop = {});

    /// What to tell the player about an error of `ReadFile`.
    static QString ReadFailure(const std::filesystem::path& file, std::error_code error);

    /// Writes the list to the file that it was read from, if marks have changed and the file still
    /// holds what was read. Only the first call does so, or else the destructor. Returns whether
    /// the file has the marks.
    bool WriteBack();

    /// Writes the list, replacing the file even if it is read-only. An empty list leaves it alone.
    /// An error shows a message box, leaves the old file as it was and returns false.
    bool WriteFile(const std::filesystem::path& file) const;

private:
    /// A part of `mText`.
    struct Slice {
        std::size_t begin = 0;
        std::size_t size = 0;
    };

    std::error_code FailToRead(std::error_code error);
    std::string_view Bytes(std::size_t index) const;
    bool FileUnchanged(const std::filesystem::path& file) const;

    QByteArray mText; ///< the file's bytes as read and the paths added
    qsizetype mTextRead = 0;
    std::vector<Slice> mFiles;
    std::vector<std::int16_t> mPlayed;
    std::vector<std::int16_t> mPlayedInFile;
    std::vector<std::int32_t> mOrder;
    std::int32_t mCursor = 0;
    std::int32_t mPlayedUpTo = 0; ///< the songs at all places of `mOrder` before this are played
    std::filesystem::path mFileName;
};
