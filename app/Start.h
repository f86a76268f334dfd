#pragma once

#include "app/f_Load.h"
#include "app/f_Menu.h"
#include "app/f_Quick.h"
#include "game/Evening.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"

#include <cstdint>
#include <memory>

/// Runs the program: makes sure that it is the only copy, stores the program's folder in the
/// settings, loads the background and goes from mode to mode until the player leaves.
class Start {
public:
    /// Runs the program and returns when it is over. A second copy says so and returns at once.
    static void Run();

    Start();
    ~Start();
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    void ModeLoop();

private:
    /// The forms of both games, created with the first game so that the menu appears sooner.
    struct GameForms {
        f_Quick quick;
        f_Load load;
        f_Multi board;
        f_HighMulti scores;
        f_High name;
    };

    void ModeStep();
    bool RunEditor();
    template <typename Game> bool RunGame();
    void ShowScores();
    GameForms& Forms();

    bool gQuit = false;
    std::int16_t gPlayers = 0;
    QString gMode;

    f_Menu mMenu;
    game::Evening mEvening;
    std::unique_ptr<GameForms> mGameForms;
};
