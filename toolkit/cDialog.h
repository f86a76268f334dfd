#pragma once

#include <QString>
#include <cstdint>

/// The file and colour dialogs. Paths are texts as from `platform::TextFromPath`. The file
/// dialogs start in the current folder, show the files that match `pattern` ("*.mp3", or several
/// with blanks between them) without regard to case, and make the folder of the chosen file the
/// current one.
class cDialog {
public:
    /// Asks for a file to save to, suggesting `initialName`. Returns the path as typed; the caller
    /// adds the pattern's ending where it is missing. Asks before replacing a file that has the
    /// name with that ending. "" if cancelled.
    static QString GetSaveName(const QString& title, const QString& description,
                               const QString& pattern, const QString& initialName = QString());

    /// Asks for an existing file, with `initialName` preselected. If cancelled, the result is
    /// `initialName` followed by 1024 blanks, so it must be trimmed before it is tested.
    ///
    /// With `multiple`, any number of files may be chosen. The result is then the path of a single
    /// file or, for several, their folder and the name of each, separated by "?". The separators in
    /// each part are escaped (`platform::EscapeSeparators`), and blanks follow.
    static QString GetOpenName(const QString& title, const QString& description,
                               const QString& pattern, const QString& initialName, bool multiple);

    /// Asks for a colour and returns it as 0x00BBGGRR, or -1 if cancelled. Either way the 16
    /// custom colours of the dialog are kept for the next time.
    static std::int32_t PickColor();
};
