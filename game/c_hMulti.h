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
/// is kept beside it as ".old", ".old2" and so on, and the table starts anew.
class c_hMulti : public QObject {
    Q_OBJECT
public:
    c_hMulti(f_HighMulti& form, f_High& nameForm);
    ~c_hMulti() override;

    /// The kind of game, whose table is meant; Normal Play unless set.
    void SetGame(game::GameKind kind);

    /// The table's file, if it is another one.
    void SetFileName(const std::filesystem::path& file) { mFile = file; }

    /// Takes the score of a single player into the table and shows it.
    void Check(std::int32_t score);

    /// The same for the scores of several players, in their order.
    void MultiCheck(const std::vector<std::int32_t>& scores);

    /// Shows the tables of all kinds of game, one at a time, until the player has seen enough; the
    /// close button ends no more than that. Changes no file.
    void Browse();

    /// Sorts the scores of a game, best first, and shows them until the player goes on, with what
    /// else is worth a notice.
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
    /// Takes the table from it, once that is done, or leaves it as it stands if there is none.
    /// Reports a failure. Nothing if the program was asked to quit before.
    std::optional<game::HighScoreTable::ReadResult> TakeTable();
    /// The same, and moves a file that is no good out of the way; false if there was a quit.
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
