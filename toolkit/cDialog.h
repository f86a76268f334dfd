#pragma once

#include <QString>
#include <cstdint>

/// The system's file and colour dialogs. Paths are texts as of `platform::TextFromPath`. The file
/// dialogs start in the current folder, show the files that match `pattern` ("*.mp3") without
/// regard to case, and leave the folder of the chosen file as the current one.
class cDialog {
public:
    /// Asks for a file to save to, and before an existing one is chosen, whether to replace it;
    /// also one that the name becomes when the pattern's ending is added. "" when cancelled.
    static QString GetSaveName(const QString& title, const QString& description,
                               const QString& pattern);

    /// Asks for an existing file, with `initialName` chosen at first. When cancelled, the result is
    /// `initialName` and 1024 blanks, so it must be trimmed before it is tested.
    ///
    /// With `multiple`, any number of files may be chosen: one is answered by its path, several by
    /// the folder and the name of each, separated by "?". Each part has its own separators escaped
    /// (`platform::EscapeSeparators`), and blanks follow.
    static QString GetOpenName(const QString& title, const QString& description,
                               const QString& pattern, const QString& initialName, bool multiple);

    /// Asks for a colour and returns it as 0x00BBGGRR, or -1 when cancelled. Either way the 16
    /// custom colours of the dialog are kept for the next time.
    static std::int32_t PickColor();
};
