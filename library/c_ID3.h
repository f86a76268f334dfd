#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <system_error>

namespace platform {
class RegularFile;
}

/// The ID3v1 tag of an MP3 file: its last 128 bytes, Windows-1252. A title of more than 30
/// characters goes on in the comment. Failing to read or write is silent.
class c_ID3 {
public:
    QString Title() const { return mTitle; }
    QString Artist() const { return mArtist; }
    QString Album() const { return mAlbum; }
    QString Comment() const { return mComment; }
    /// As stored: 4 characters, padding included.
    QString Year() const { return mYear; }
    /// The genre's name; empty when the file's genre number has none.
    QString Genre() const { return mGenre; }

    // The texts are taken as they are; `PutIdTag` cuts them.
    void SetTitle(const QString& title) { mTitle = title; }
    void SetArtist(const QString& artist) { mArtist = artist; }
    void SetAlbum(const QString& album) { mAlbum = album; }
    void SetComment(const QString& comment) { mComment = comment; }
    void SetYear(const QString& year) { mYear = year; }
    void SetGenre(const QString& genre) { mGenre = genre; }

    /// Reads the file's tag. Without one the fields become empty, except `Genre`, which stays.
    void GetIdTag(const std::filesystem::path& fileName);

    /// The same for an open file; for one that could not be opened, as without a tag.
    void GetIdTag(platform::RegularFile& file);

    /// The same out of what `EndOf` gave.
    void TakeEnd(const QByteArray& end);

    /// Writes the fields over the file's tag, or adds one, which replaces the file's last byte. A
    /// `Genre` without a number is written as Blues. A file that cannot be written, is read-only or
    /// has fewer than 128 bytes stays as it was. Afterwards the fields hold what was written; after
    /// a failure they also keep their padding.
    void PutIdTag(const std::filesystem::path& fileName);

    /// What reading gives once the fields are written.
    c_ID3 AsWritten() const;

    /// The bytes at a file's end that `PutIdTag` replaces: its tag or, without one, its last byte.
    /// Empty for a file that is too short or cannot be read.
    static QByteArray EndOf(const std::filesystem::path& fileName);
    static QByteArray EndOf(platform::RegularFile& file);

    /// Replaces what `EndOf` is now by `end`, what it was earlier, so that tags written in between
    /// leave no trace. On error the file is as it was.
    static std::error_code PutEnd(const std::filesystem::path& fileName, const QByteArray& end);

    /// `text` without spaces at its ends, and then without line feeds, carriage returns, NULs and
    /// backslashes. Spaces that stood before one of those at the end stay.
    static QString CleanCrap(const QString& text);

    /// `text` cut to `length` characters, or filled up with spaces.
    static QString SpaceOut(const QString& text, int length);

    /// A song title made from the file's name.
    static QString TitleFromFileName(const std::filesystem::path& file);

private:
    void FitFields();
    void CleanFields();
    void JoinLongTitle();
    void SplitLongTitle();
    QByteArray TagBytes() const;

    QString mTitle;
    QString mArtist;
    QString mAlbum;
    QString mComment;
    QString mYear;
    QString mGenre;
};
