#pragma once

#include "game/HighScoreTable.h"
#include "platform/Answer.h"
#include "toolkit/Screen.h"

#include <QByteArray>
#include <QObject>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

class f_High;
class f_HighMulti;

/// Shows the scores of a game, takes those that are good enough into the mode's table of the ten
/// best, keeps the table in its file and shows it. A file that cannot be read or was tampered with
/// is kept beside it as ".old", ".old2" and so on, and the table starts anew.
class c_hMulti : public QObject {
    Q_OBJECT
public:
    c_hMulti(f_HighMulti& form, f_High& nameForm);
    ~c_hMulti() override;

    /// The table's file; the multiple-choice game's unless set.
    void SetFileName(const std::filesystem::path& file) { mFile = file; }

    /// Takes the score of a single player into the table and shows it.
    void Check(std::int32_t score);

    /// The same for the scores of several players, in their order.
    void MultiCheck(const std::vector<std::int32_t>& scores);

    /// Sorts the scores of a game, best first, and shows them until the player goes on.
    void SetAndShowScores(std::vector<std::int32_t>& scores);

    /// Whether the player left by the close button, or the program was asked to quit.
    bool ExitProgram() const;

    void bCont_Clicked();
    void bMin_Clicked();
    void bX_Clicked();

private:
    void Enter(std::int32_t score, const QString& prompt);
    void ShowTable();
    void ShowForm();
    /// Begins to read the table's file.
    void Read();
    /// Takes the table from it, once that is done; false if the program was asked to quit before.
    bool Load();
    void SaveAndShowTable();
    /// Moves the file out of the way of a new one; reports a failure.
    void KillIt();

    struct FileRead {
        bool isThere = false;
        std::error_code error;
        QByteArray bytes;
    };

    f_HighMulti& mForm;
    f_High& mNameForm;
    std::filesystem::path mFile;
    std::optional<platform::Answer<FileRead>> mRead;
    game::HighScoreTable mTable;
    bool mInTheWay = false; // a file that could neither be read nor moved aside
    bool mQuit = false;
    toolkit::WindowButtons mWindowButtons;
    c_SurfButton bCont;
};
