#pragma once

#include "app/f_Load.h"
#include "app/f_Menu.h"
#include "app/f_Quick.h"
#include "game/SongSource.h"
#include "game/c_gMulti.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"

#include <cstdint>

/// The program's life: claims the program, remembers where it lives, loads the background and goes
/// from mode to mode until one of them wants to end.
class Start {
public:
    /// Runs the program; returns when it is to end. A second copy tells so and returns at once.
    static void Run();

    Start();
    ~Start();
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    void ModeLoop();

private:
    void ModeStep();
    bool RunEditor();
    template <typename Game> bool RunGame();

    bool gQuit = false;
    std::int16_t gPlayers = 0;
    QString gMode;

    f_Menu mMenu;
    f_Quick mQuick;
    f_Load mLoad;
    f_Multi mBoard;
    f_HighMulti mScores;
    f_High mName;
    game::Forms mGameForms{mBoard, mScores, mName};
    game::SongSourceFactory mNewSongSource;
};
