// songrush_step <step>: one of the steps that change files, as the program takes it, in the current
// folder. Prints the texts of the messages that came.

#include "app/ShippedFiles.h"
#include "editor/SongChange.h"
#include "editor/UnsavedCopy.h"
#include "game/c_hMulti.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "library/SongCycle.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"
#include "tests/Robot.h"
#include "toolkit/Stage.h"

#include <QApplication>
#include <QPushButton>
#include <iostream>
#include <map>

namespace fs = std::filesystem;

namespace {

std::function<void()> gAct = [] {}; // what the player does

void Play(const char* list) {
    library::SongCycle cycle(fs::current_path() / list);
    if (cycle.Error())
        return platform::ShowMessage(c_M3U::ReadFailure(list, cycle.Error()));
    cycle.Begin();
    if (!cycle.Upcoming(1).empty())
        cycle.Take();
}

void SaveScore() {
    f_HighMulti scores;
    f_High name;
    c_hMulti table(scores, name);
    table.SetFileName("H1.dat");
    gAct = [&] {
        if (name.isVisible())
            ClickOn(name.cmdContinue);
        else
            ClickOn(scores.pCont);
    };
    table.Check(7);
    gAct = [] {};
}

void ChangeSong(const std::function<void(editor::SongFacts&)>& edit) {
    const auto change = editor::ChangeSong({"Music/1.mp3", edit});
    if (!change.problems.empty())
        platform::ShowMessage(editor::ProblemsOf({change}));
}

void SaveList() {
    c_M3U list;
    for (const char* song : {"Music/1.mp3", "Music/2.mp3"})
        list.Add(song);
    list.WriteFile("Saved.m3u");
}

const std::map<QString, std::function<void()>> kSteps = {
    {"play", [] { Play("Marked.m3u"); }},
    {"play-foreign", [] { Play("Foreign.m3u"); }},
    {"save-list", SaveList},
    {"save-score", SaveScore},
    {"write-tag", [] { ChangeSong([](auto& facts) { facts.title = "New"; }); }},
    {"rename", [] { ChangeSong([](auto& facts) { facts.path = "Music/New.mp3"; }); }},
    {"keep-unsaved", [] { editor::UnsavedCopy::Keep("List.m3u", false, {"Music/1.mp3"}); }},
    {"settings", [] { platform::WriteSetting("Songrush", "Dirs", "Mp3", "/new"); }},
    {"first-start",
     [] {
         if (const auto error = app::BringShippedFiles("shipped", "own"))
             platform::ShowMessage(QString::fromStdString(error.message()));
     }},
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    platform::SetProgramFolder(fs::current_path());
    toolkit::Stage::Get();
    QStringList messages;
    {
        const Robot robot([] { gAct(); });
        kSteps.at(QApplication::arguments().value(1))();
        platform::AsidesEnd(std::chrono::seconds(20));
        messages = robot.Messages();
    }
    std::cout << messages.join(u'\n').toStdString();
}
