#include "game/c_hMulti.h"

#include "game/PlayerColor.h"
#include "game/RankScores.h"
#include "game/f_High.h"
#include "game/f_HighMulti.h"
#include "platform/File.h"
#include "platform/Message.h"
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

/// With several players it tells them apart and says who won.
f_HighMulti::Row RowOf(int rank, const game::Standing& standing, bool several) {
    f_HighMulti::Row row{.rank = rank,
                         .name = QStringLiteral("Player %1").arg(standing.player),
                         .score = QString::number(standing.score)};
    if (several) {
        row.color = game::PlayerColor(standing.player);
        row.won = standing.Won();
    }
    return row;
}

} // namespace

c_hMulti::c_hMulti(f_HighMulti& form, f_High& nameForm)
    : mForm(form), mNameForm(nameForm), mWindowButtons(form) {
    bCont.Create(form.pCont, QStringLiteral("Images\\bCont.bmp"), QString());
    form.LayOut();
    form.CopyBackground();
    bAgain.Create(form.pAgain, QStringLiteral("Play again"));
    bOther.Create(form.pOther, game::NameOf(game::Other(mKind)));
    connect(&bCont, &c_SurfButton::Clicked, this, &c_hMulti::bCont_Clicked);
    connect(&bAgain, &c_PicButton::Clicked, this, &c_hMulti::bAgain_Clicked);
    connect(&bOther, &c_PicButton::Clicked, this, &c_hMulti::bOther_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_hMulti::bX_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_hMulti::bMin_Clicked);
}

c_hMulti::~c_hMulti() { mForm.hide(); }

void c_hMulti::SetGame(game::GameKind kind) {
    mKind = kind;
    mFile = game::TableOf(kind);
}

void c_hMulti::Check(std::int32_t score) {
    if (!Load())
        return;
    Enter(score, QStringLiteral("You got a High Score! Please Enter your name below."));
    ShowResult();
}

void c_hMulti::MultiCheck(const std::vector<std::int32_t>& scores) {
    if (!Load())
        return;
    int place = 0;
    for (const std::int32_t score : scores)
        Enter(score, QStringLiteral("Player %1 got a High Score! Please Enter Their name below.")
                         .arg(++place));
    ShowResult();
}

void c_hMulti::Browse() {
    mForm.pOther->show();
    for (mOther = true; mOther; SetGame(game::Other(mKind))) {
        mOther = false;
        mTable = {};
        if (!TakeTable())
            break;
        bOther.SetCaption(game::NameOf(game::Other(mKind)));
        DrawTable(mTable);
        ShowForm();
    }
    mForm.pOther->hide();
}

void c_hMulti::Enter(std::int32_t score, const QString& prompt) {
    const auto place = mTable.PlaceFor(score);
    if (!place || platform::Quitting())
        return;
    game::HighScoreTable withoutName = mTable;
    withoutName.Insert(*place, QString(), score);
    DrawTable(withoutName);
    mForm.MarkRow(*place);
    mForm.pCont->hide();
    mWindowButtons.Refresh();
    mForm.ShowInPlace();
    if (const auto name = mNameForm.GetName(prompt, *place + 1, score))
        mTable.Insert(*place, *name, score);
    mForm.pCont->show();
}

void c_hMulti::ShowResult() {
    const platform::Answer<bool> saved(
        [inTheWay = mInTheWay, file = mFile, bytes = mTable.Serialise()](const std::stop_token&) {
            return !inTheWay && !platform::ReplaceFile(file, bytes);
        });
    DrawTable(mTable);
    mForm.pAgain->show();
    ShowForm();
    mForm.pAgain->hide();
    platform::WaitWhile([&saved] { return !saved.Get(); });
    if (!saved.Get().value_or(true))
        platform::ShowMessage(QStringLiteral("Error Writing High Scores."));
}

void c_hMulti::SetAndShowScores(std::vector<std::int32_t>& scores, const QStringList& notices) {
    BeginToRead(); // the table, which comes next
    const std::vector<game::Standing> standings = game::RankScores(scores);
    const int count = static_cast<int>(scores.size());
    for (int first = 0; first < count && !ExitProgram(); first += f_HighMulti::kRows) {
        const int rows = std::min(f_HighMulti::kRows, count - first);
        mForm.DrawTitle(QStringLiteral("SCORES"), game::NameOf(mKind), rows);
        for (int line = 0; line < rows; ++line) {
            const int at = first + line;
            mForm.DrawRow(line, RowOf(at + 1, standings[static_cast<std::size_t>(at)], count > 1));
        }
        if (first == 0)
            mForm.DrawNotices(notices);
        if (rows == count && count > 1 && standings.front().Won())
            mForm.DrawPodium(standings);
        ShowForm();
    }
}

void c_hMulti::DrawTable(const game::HighScoreTable& table) {
    mForm.DrawTitle(QStringLiteral("HIGH SCORES"), game::NameOf(mKind),
                    game::HighScoreTable::kPlaces);
    for (int i = 0; i < game::HighScoreTable::kPlaces; ++i)
        mForm.DrawRow(i, {.rank = i + 1,
                          .name = table.Name(i),
                          .score = table.Score(i),
                          .isNew = table.IsNew(i)});
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

void c_hMulti::BeginToRead() {
    mRead.emplace([file = mFile](const std::stop_token&) {
        FileRead read;
        std::error_code error;
        read.isThere = fs::exists(file, error) || error;
        read.error = platform::ReadWholeFile(file, read.bytes);
        return read;
    });
}

std::optional<game::HighScoreTable::ReadResult> c_hMulti::TakeTable() {
    if (!mRead)
        BeginToRead();
    platform::WaitWhile([this] { return !mRead->Get(); });
    const std::optional<FileRead> read = mRead->Get();
    mRead.reset();
    if (!read)
        return std::nullopt;
    using Result = game::HighScoreTable::ReadResult;
    if (!read->isThere)
        return Result::Good;
    const Result result = read->error ? Result::Unreadable : mTable.Parse(read->bytes);
    if (result == Result::Unreadable)
        platform::ShowMessage(QStringLiteral("Error loading High Scores."));
    return result;
}

bool c_hMulti::Load() {
    mInTheWay = false;
    const auto result = TakeTable();
    if (result && *result != game::HighScoreTable::ReadResult::Good)
        KillIt();
    return result.has_value();
}

void c_hMulti::KillIt() {
    mInTheWay = static_cast<bool>(KeepBeside(mFile));
    if (mInTheWay)
        platform::ShowMessage(QStringLiteral("Error in KillIt:c_hMulti"));
}

void c_hMulti::bCont_Clicked() { mForm.hide(); }

void c_hMulti::bAgain_Clicked() {
    mAgain = true;
    mForm.hide();
}

void c_hMulti::bOther_Clicked() {
    mOther = true;
    mForm.hide();
}

void c_hMulti::bMin_Clicked() { mForm.Minimise(); }

void c_hMulti::bX_Clicked() {
    mQuit = true;
    mForm.hide();
}
