#include "game/c_hMulti.h"

#include "game/RankScores.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "platform/File.h"
#include "platform/Message.h"
#include "platform/ProgramFolder.h"
#include "platform/Wait.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// Adds ".old" to the name of a file or, if that is taken, the first free one of ".old2", ".old3"
/// and so on.
std::error_code KeepBeside(const fs::path& file) {
    const std::string ending = ".old";
    for (int number = 1;; ++number) {
        fs::path kept = file;
        kept += number == 1 ? ending : ending + std::to_string(number);
        const std::error_code error = platform::RenameNoReplace(file, kept);
        if (error != std::errc::file_exists)
            return error;
    }
}

} // namespace

c_hMulti::c_hMulti(f_HighMulti& form, f_High& nameForm)
    : mForm(form), mNameForm(nameForm), mFile(platform::ProgramFolder() / "H1.dat"),
      mWindowButtons(form) {
    bCont.Create(form.pCont, QStringLiteral("Images\\bCont.bmp"), QString());
    form.LayOut();
    connect(&bCont, &c_SurfButton::Clicked, this, &c_hMulti::bCont_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_hMulti::bX_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_hMulti::bMin_Clicked);
}

c_hMulti::~c_hMulti() { mForm.hide(); }

void c_hMulti::Check(std::int32_t score) {
    if (!Load())
        return;
    Enter(score, QStringLiteral("You got a High Score! Please Enter your name below."));
    SaveAndShowTable();
}

void c_hMulti::MultiCheck(const std::vector<std::int32_t>& scores) {
    if (!Load())
        return;
    int place = 0;
    for (const std::int32_t score : scores)
        Enter(score, QStringLiteral("Player %1 got a High Score! Please Enter Their name below.")
                         .arg(++place));
    SaveAndShowTable();
}

void c_hMulti::Enter(std::int32_t score, const QString& prompt) {
    const auto place = mTable.PlaceFor(score);
    if (!place)
        return;
    if (const auto name = mNameForm.GetName(prompt))
        mTable.Insert(*place, *name, score);
}

void c_hMulti::SetAndShowScores(std::vector<std::int32_t>& scores) {
    Read(); // the table, which comes next
    const std::vector<QString> labels = game::RankScores(scores);
    const int count = static_cast<int>(scores.size());
    for (int first = 0; first < count && !ExitProgram(); first += f_HighMulti::kRows) {
        mForm.DrawTitle(QStringLiteral("SCORES"));
        for (int i = first; i < std::min(first + f_HighMulti::kRows, count); ++i) {
            const auto at = static_cast<std::size_t>(i);
            mForm.DrawRow(i - first, {i + 1, labels[at], QString::number(scores[at]), false});
        }
        ShowForm();
    }
}

void c_hMulti::ShowTable() {
    mForm.DrawTitle(QStringLiteral("HIGH SCORES"));
    for (int i = 0; i < game::HighScoreTable::kPlaces; ++i)
        mForm.DrawRow(i, {i + 1, mTable.Name(i), mTable.Score(i), mTable.IsNew(i)});
    ShowForm();
}

bool c_hMulti::ExitProgram() const { return mQuit || platform::Quitting(); }

void c_hMulti::ShowForm() {
    if (platform::Quitting())
        return;
    mWindowButtons.Refresh();
    bCont.Refresh();
    mForm.ShowInPlace();
    mForm.pCont->setFocus();
    platform::WaitWhile([this] { return mForm.isVisible(); });
}

void c_hMulti::Read() {
    mRead.emplace([file = mFile](const std::stop_token&) {
        FileRead read;
        std::error_code error;
        read.isThere = fs::exists(file, error) || error;
        read.error = platform::ReadWholeFile(file, read.bytes);
        return read;
    });
}

bool c_hMulti::Load() {
    if (!mRead)
        Read();
    platform::WaitWhile([this] { return !mRead->Get(); });
    const std::optional<FileRead> read = mRead->Get();
    mRead.reset();
    mInTheWay = false;
    if (!read || !read->isThere)
        return read.has_value();
    using Result = game::HighScoreTable::ReadResult;
    const Result result = read->error ? Result::Unreadable : mTable.Parse(read->bytes);
    if (result == Result::Unreadable)
        platform::ShowMessage(QStringLiteral("Error loading High Scores."));
    if (result != Result::Good)
        KillIt();
    return true;
}

void c_hMulti::SaveAndShowTable() {
    const platform::Answer<bool> saved(
        [inTheWay = mInTheWay, file = mFile, bytes = mTable.Serialise()](const std::stop_token&) {
            return !inTheWay && !platform::ReplaceFile(file, bytes);
        });
    ShowTable();
    platform::WaitWhile([&saved] { return !saved.Get(); });
    if (!saved.Get().value_or(true))
        platform::ShowMessage(QStringLiteral("Error Writing High Scores."));
}

void c_hMulti::KillIt() {
    mInTheWay = static_cast<bool>(KeepBeside(mFile));
    if (mInTheWay)
        platform::ShowMessage(QStringLiteral("Error in KillIt:c_hMulti"));
}

void c_hMulti::bCont_Clicked() { mForm.hide(); }

void c_hMulti::bMin_Clicked() { mForm.Minimise(); }

void c_hMulti::bX_Clicked() {
    mQuit = true;
    mForm.hide();
}
