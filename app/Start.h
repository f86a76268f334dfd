#pragma once

#include "app/f_Load.h"
#include "app/f_Menu.h"
#include "app/f_Quick.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "game/f_Multi.h"

#include <cstdint>
#include <memory>

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

    /// The forms of both games, made for the first one, so that the menu need not wait for them.
    struct GameForms {
        f_Quick quick;
        f_Load load;
        f_Multi board;
        f_HighMulti scores;
        f_High name;
    };

    f_Menu mMenu;
    std::unique_ptr<GameForms> mGameForms;
};
