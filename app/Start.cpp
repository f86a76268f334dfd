#include "app/Start.h"

#include "app/ShippedFiles.h"
#include "app/c_Menu.h"
#include "app/c_Quick.h"
#include "audio/c_XAudio.h"
#include "editor/c_Editor.h"
#include "game/c_gBet.h"
#include "game/c_hMulti.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"
#include "platform/SingleInstance.h"
#include "platform/Volume.h"
#include "platform/Wait.h"
#include "toolkit/Stage.h"

void Start::Run() {
    if (!platform::ClaimSingleInstance()) {
        platform::ShowMessage(QStringLiteral("Songrush is already running"));
        return;
    }
    toolkit::Stage& stage = toolkit::Stage::Get();
    app::PrepareProgramFolder();
    platform::WritePathSetting(QStringLiteral("Songrush"), QStringLiteral("Dirs"),
                               QStringLiteral("AppPath"), platform::ProgramFolder());
    platform::Volume::Get().Recall();
    Start().ModeLoop();
    platform::Volume::Get().Remember();
    stage.Remember();
}

Start::Start() {
    gBack = std::make_unique<c_Surface>();
    gBack->CreateSurface(800, 600, QStringLiteral("Images\\Back.bmp"));
}

Start::~Start() {
    gAudio.reset();
    gBack.reset();
}

void Start::ModeLoop() {
    while (!gQuit && !platform::Quitting())
        ModeStep();
}

void Start::ModeStep() {
    {
        c_Menu menu(mMenu);
        gMode = menu.Choose();
        gPlayers = static_cast<std::int16_t>(menu.PlayerCode());
    }
    const auto chosen = [this](const char* mode) {
        return gMode.compare(QLatin1String(mode), Qt::CaseInsensitive) == 0;
    };
    gQuit = !chosen("Menu") && !chosen("HighScores");
    if (chosen("Editor"))
        gQuit = RunEditor();
    else if (chosen("MultipleChoice"))
        gQuit = RunGame<c_gMulti>();
    else if (chosen("Betting"))
        gQuit = RunGame<c_gBet>();
    else if (chosen("HighScores"))
        ShowScores();
}

bool Start::RunEditor() {
    c_Editor editor;
    editor.Run();
    return editor.ExitProgram;
}

template <typename Game> bool Start::RunGame() {
    GameForms& forms = Forms();
    Game game({forms.board, forms.scores, forms.name, mEvening},
              [&forms] { return std::make_unique<c_Quick>(forms.quick, forms.load); });
    game.SetPlayers(gPlayers);
    game.Run();
    return game.ExitProgram();
}

void Start::ShowScores() {
    GameForms& forms = Forms();
    c_hMulti(forms.scores, forms.name).Browse();
}

Start::GameForms& Start::Forms() {
    if (!mGameForms)
        mGameForms = std::make_unique<GameForms>();
    return *mGameForms;
}
