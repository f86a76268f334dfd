#pragma once

#include "game/GameKind.h"
#include "game/HighScoreTable.h"
#include "platform/Answer.h"
#include "toolkit/Screen.h"
#include "toolkit/c_PicButton.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

class f_High;
class f_HighMulti;

/// Shows the scores of a game, takes those that are good enough into the mode's table of the ten
/// best, keeps the table in its file and shows it. A file that cannot be read or was tampered with
/// is kept beside it as ".old", ".old2" and so on, and a new table is started.
class c_hMulti : public QObject {
    Q_OBJECT
public:
    c_hMulti(f_HighMulti& form, f_High& nameForm);
    ~c_hMulti() override;

    /// Sets the kind of game, and with it the table; Normal Play unless set.
    void SetGame(game::GameKind kind);

    /// Uses another file for the table.
    void SetFileName(const std::filesystem::path& file) { mFile = file; }

    /// Enters the score of a single player, if it is good enough, and shows the table.
    void Check(std::int32_t score);

    /// The same for the scores of several players, in their order.
    void MultiCheck(const std::vector<std::int32_t>& scores);

    /// Shows the tables of all kinds of game, one at a time, until the player leaves them; here the
    /// close button does not leave the program. Changes no file.
    void Browse();

    /// Sorts the scores of a game, best first, and shows them, with the notices, until the player
    /// goes on.
    void SetAndShowScores(std::vector<std::int32_t>& scores, const QStringList& notices = {});

    /// Whether the player wants the same game again.
    bool PlayAgain() const { return mAgain; }

    /// Whether the player left by the close button, or the program was asked to quit.
    bool ExitProgram() const;

    void bCont_Clicked();
    void bAgain_Clicked();
    void bOther_Clicked();
    void bMin_Clicked();
    void bX_Clicked();

private:
    void Enter(std::int32_t score, const QString& prompt);
    /// Shows the table with all who entered it, and saves it.
    void ShowResult();
    void DrawTable(const game::HighScoreTable& table);
    void ShowForm();
    /// Begins to read the table's file.
    void BeginToRead();
    /// Waits for the file and takes the table from it; without a file the table stays as it is.
    /// Reports a failure. Nothing if the program was asked to quit meanwhile.
    std::optional<game::HighScoreTable::ReadResult> TakeTable();
    /// The same, and moves a bad file out of the way; false if the program was asked to quit.
    bool Load();
    /// Moves the file out of the way of a new one; reports a failure.
    void KillIt();

    struct FileRead {
        bool isThere = false;
        std::error_code error;
        QByteArray bytes;
    };

    f_HighMulti& mForm;
    f_High& mNameForm;
    game::GameKind mKind = game::GameKind::NormalPlay;
    std::filesystem::path mFile = game::TableOf(mKind);
    std::optional<platform::Answer<FileRead>> mRead;
    game::HighScoreTable mTable;
    bool mInTheWay = false; // a file that could neither be read nor moved aside
    bool mQuit = false;
    bool mAgain = false;
    bool mOther = false; // the other table is wanted
    toolkit::WindowButtons mWindowButtons;
    c_SurfButton bCont;
    c_PicButton bAgain;
    c_PicButton bOther;
};
