#include "game/c_gMulti.h"

#include "audio/Effect.h"
#include "audio/c_XAudio.h"
#include "game/Choices.h"
#include "game/CoverPicture.h"
#include "game/Evening.h"
#include "game/PerfectGame.h"
#include "game/Scoring.h"
#include "game/c_hMulti.h"
#include "game/f_Multi.h"
#include "library/Cover.h"
#include "library/SongCycle.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/Chance.h"
#include "platform/Message.h"
#include "platform/Time.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"

#include <algorithm>

using namespace toolkit;

c_gMulti::c_gMulti(const game::Forms& forms, game::SongSourceFactory newSongSource)
    : mForms(forms), mAnswerScreen(forms.board), mNewSongSource(std::move(newSongSource)),
      mWindowButtons(forms.board) {
    CreateButtons();
    Board().CopyBackground();
    Board().LayOut();
    constexpr int kLookEvery = 5; // milliseconds
    mTillHeard.setInterval(kLookEvery);
    mTillHeard.setTimerType(Qt::PreciseTimer);
    mTillHeard.callOnTimeout(this, &c_gMulti::BeginWhenHeard);
    connect(&Board(), &f_Multi::ClockMoved, this,
            [this](float seconds) { Board().DrawStake(Stake(seconds)); });
}

c_gMulti::~c_gMulti() { Board().hide(); }

void c_gMulti::CreateButtons() {
    constexpr int kBulletWidth =
        56; // of the record on the skin; the other side keeps as much clear
    f_Multi& board = Board();
    bPlay.Create(board.pPlay, QStringLiteral("Images\\bPlayBig.bmp"), QString());
    bHint.Create(board.pHint, QStringLiteral("Images\\bHint.bmp"), QString());
    bCont.Create(board.pCont, QStringLiteral("Images\\BCont.bmp"), QString());
    Choice1.mCaptionMargin = kBulletWidth;
    Choice1.Create(board.PChoice1, QStringLiteral("Images\\BGeneric.bmp"),
                   QStringLiteral("Choice1"));
    Choice2.Clone(board.pChoice2, Choice1, QStringLiteral("Choice2"));
    Choice3.Clone(board.pChoice3, Choice1, QStringLiteral("Choice3"));
    Choice4.Clone(board.pChoice4, Choice1, QStringLiteral("Choice4"));

    connect(&Choice1, &c_SurfButton::Clicked, this, &c_gMulti::bChoice1_Clicked);
    connect(&Choice2, &c_SurfButton::Clicked, this, &c_gMulti::bChoice2_Clicked);
    connect(&Choice3, &c_SurfButton::Clicked, this, &c_gMulti::bChoice3_Clicked);
    connect(&Choice4, &c_SurfButton::Clicked, this, &c_gMulti::bChoice4_Clicked);
    connect(&bCont, &c_SurfButton::Clicked, this, &c_gMulti::bCont_Clicked);
    connect(&bPlay, &c_SurfButton::Clicked, this, &c_gMulti::bPlay_Clicked);
    connect(&bHint, &c_SurfButton::Clicked, this, &c_gMulti::bHint_Clicked);
    connect(&mWindowButtons.bX, &c_SurfButton::Clicked, this, &c_gMulti::bX_Clicked);
    connect(&mWindowButtons.bMin, &c_SurfButton::Clicked, this, &c_gMulti::bMin_Clicked);
}

void c_gMulti::Run() {
    bool plays = LoadPlaylist();
    while (plays) {
        mScores.assign(static_cast<std::size_t>(mPlayers), 0);
        mStreaks.assign(static_cast<std::size_t>(mPlayers), 0);
        mNext->Prepare();
        plays = PlayRounds() && ShowResults();
    }
    SaveMarks();
}

bool c_gMulti::LoadPlaylist() {
    const std::unique_ptr<game::SongSource> source = mNewSongSource();
    const std::filesystem::path path = source->GetM3U();
    mQuit = source->ExitProgram() || platform::Quitting();
    const bool loaded = !mQuit && !path.empty() && LoadSongs(*source, path);
    source->LoadingDone();
    if (mQuit)
        return false;
    if (path.empty())
        platform::ShowMessage(QStringLiteral("Songrush requires a playlist to play."));
    else if (mList && mList->Error())
        platform::ShowMessage(c_M3U::ReadFailure(path, mList->Error()));
    else if (mList && mList->Count() < game::kFewestSongs)
        platform::ShowMessage(QStringLiteral("Songrush Requires atleast 10 songs in a playlist."));
    return loaded;
}

/// Reads the playlist and gets the first question ready, unless the player gives up meanwhile.
bool c_gMulti::LoadSongs(const game::SongSource& source, const std::filesystem::path& path) {
    const platform::Answer<std::shared_ptr<library::SongCycle>> read(
        [path](const std::stop_token& stop) {
            auto list = std::make_shared<library::SongCycle>(path, stop);
            if (list->Count() >= game::kFewestSongs)
                list->Begin();
            return list;
        });
    const auto wanted = [&source] { return source.Loading(); };
    platform::WaitWhile([&] { return wanted() && !read.Get(); });
    if (wanted() && !platform::Quitting())
        mList = read.Get().value_or(nullptr);
    if (mList && mList->Count() >= game::kFewestSongs) {
        mNext.emplace(*mList);
        mNext->Prepare();
        platform::WaitWhile([&] { return wanted() && Preparing(); });
    }
    mQuit = mQuit || platform::Quitting();
    return !mQuit && mNext && wanted();
}

/// On a thread of its own: the disk may take its time.
void c_gMulti::SaveMarks() {
    mNext.reset();
    if (mList)
        platform::Aside([list = std::exchange(mList, nullptr)](const std::stop_token&) mutable {
            list.reset();
        });
}

/// Returns whether there are results to show.
bool c_gMulti::PlayRounds() {
    for (mRound = 1; mRound <= kRounds; ++mRound) {
        for (mPlayer = 1; mPlayer <= mPlayers; ++mPlayer) {
            if (!PrepareSong()) {
                if (!mQuit)
                    TellNoSongLeft();
                return !mQuit && !FirstQuestion();
            }
            if (!PlayQuestion())
                return false;
        }
    }
    return true;
}

void c_gMulti::TellNoSongLeft() {
    platform::ShowMessage(
        FirstQuestion()
            ? QStringLiteral("None of the songs in this playlist can be played.")
            : QStringLiteral("None of the songs in this playlist can be played any more."));
}

bool c_gMulti::PlayQuestion() {
    if (!TakeBet())
        return false;
    AskTitle();
    const int choice = WaitForChoice();
    if (mQuit)
        return false;
    Board().StopTimer();
    Answered();
    Board().pHint->hide();
    ShowChoices(false);
    Board().pTimer->hide();
    Board().ClearBackground();
    Board().HideRecordLight();
    ShowAnswer(choice);
    return WaitForContinue();
}

bool c_gMulti::PrepareSong() {
    Board().ClearBackground();
    Board().SetFontSize(24);
    AwaitSong();
    if (!FirstQuestion() && mNext->Advance() == game::NextQuestion::State::NoSongLeft) {
        mNext->TryAgain(); // a disk that was unplugged during the last question may be back
        AwaitSong();
    }
    if (mQuit || mNext->Advance() != game::NextQuestion::State::Ready)
        return false;
    mQuestion = mNext->Take();
    if (!LastQuestion())
        mNext->Prepare();
    ShowChoices(false);
    return true;
}

void c_gMulti::AwaitSong() {
    if (!Preparing())
        return;
    DrawStatus();
    Board().HoldCaptions(); // they are announced with the question
    Board().AskQuestion(QStringLiteral("Loading..."));
    ShowBoard();
    WaitWhileShown([this] { return Preparing(); });
    Board().ClearBackground();
}

void c_gMulti::AskTitle() {
    f_Multi& board = Board();
    board.ClearBackground();
    board.SetFontSize(24);
    board.SetTimeLimit(ClipSeconds());
    SetChoiceCaptions(mQuestion.titles);
    DrawStatus();
    board.AskQuestion(QStringLiteral("What is the Title of this Song?"));
    board.DrawDial();
    board.DrawStake(Stake(0));
    board.DrawRing(mPlayer);
    ShowBoard();
    bPlay.Refresh();
    board.pPlay->show();
    board.pPlay->setFocus();
}

void c_gMulti::ShowBoard() {
    // The corner's buttons copy the board behind them, which may have been written on.
    mWindowButtons.Refresh();
    if (!Board().isVisible())
        Board().ShowInPlace();
}

void c_gMulti::DrawStatus() {
    Board().DrawRound(kRounds, mRound);
    Board().DrawScore(Score());
    if (mPlayers == 1)
        return Board().DrawSinglePlayer();
    Board().DrawPlayer(mPlayer);
    Board().DrawTurn(mPlayer);
}

void c_gMulti::SetChoiceCaptions(const std::array<QString, 4>& captions) {
    for (std::size_t i = 0; i < captions.size(); ++i) {
        mChoices[i]->SetCaption(captions[i]);
        mChoices[i]->Refresh(c_SurfButton::Normal);
    }
}

void c_gMulti::ShowChoices(bool shown) {
    for (PictureBox* choice : Board().ChoiceBoxes())
        choice->setVisible(shown);
    if (shown)
        Board().AnnounceChoices();
}

void c_gMulti::bPlay_Clicked() {
    Board().pPlay->hide();
    Board().EraseRing();
    Board().TurnRecord();
    Audio().Play();
    mSincePlay.start();
    mTillHeard.start();
}

/// Waits for the sound, so that a slow device costs the player no time, but not forever.
void c_gMulti::BeginWhenHeard() {
    constexpr int kLongest = 1000; // milliseconds
    if (!Board().ClipBegun() && mSincePlay.elapsed() < kLongest)
        return;
    mTillHeard.stop();
    Board().pHint->show();
    ShowChoices(true);
    bHint.Refresh();
    Board().InitTimer();
}

void c_gMulti::Answer(int choice) {
    if (mAnswer == 0)
        mAnswer = choice;
}

void c_gMulti::bHint_Clicked() {
    if (mAnswer != 0)
        return;
    platform::Randomize(platform::SecondsSinceMidnight());
    Board().pHint->hide();
    for (const int slot : game::DrawHint(mQuestion.correctSlot))
        Board().ChoiceBoxes()[static_cast<std::size_t>(slot)]->hide();
    Board().AnnounceChoices();
    Score() = game::ScoreAfterHint(Score());
    Board().DrawScore(Score());
}

void c_gMulti::bMin_Clicked() { Board().Minimise(); }

void c_gMulti::bX_Clicked() {
    mQuit = true;
    Board().hide();
}

int c_gMulti::WaitForChoice() {
    mAnswer = 0;
    WaitWhileShown([this] { return mAnswer == 0; });
    return mAnswer;
}

void c_gMulti::WaitWhileShown(const std::function<bool()>& waiting) {
    platform::WaitWhile([&] {
        mNext->Advance(); // goes on preparing the next question
        return Board().isVisible() && waiting();
    });
    mQuit = mQuit || platform::Quitting();
}

std::int32_t c_gMulti::PointsForAnswer(float seconds) const { return game::PointsForTime(seconds); }

QString c_gMulti::Addressed(const QString& one, const QString& several) const {
    return mPlayers == 1 ? one : several.arg(mPlayer);
}

QString c_gMulti::Stake(float seconds) const {
    return QStringLiteral("Worth %L1 Points").arg(PointsForAnswer(seconds));
}

void c_gMulti::ShowAnswer(int choice) {
    const bool right = choice == mQuestion.correctSlot + 1;
    Streak() = right ? Streak() + 1 : 0;
    if (right)
        DrawRight(choice);
    else
        DrawWrong();
    mAnswerScreen.ShowSong(mQuestion.Title(), mQuestion.artist);
    mCover.emplace([song = mQuestion.song](const std::stop_token&) {
        return game::DecodeCover(library::ReadCover(song), game::LabelRecord::kCoverSide);
    });
    if (mPlayers > 1)
        mAnswerScreen.WriteStandings(mScores);
}

void c_gMulti::DrawRight(int choice) {
    constexpr int kStreak = 3; // the first that is noticed
    const float seconds = Board().ElapsedTime();
    const std::int32_t points = PointsForAnswer(seconds);
    Score() = game::AddPoints(Score(), points);
    mAnswerScreen.WriteRight(
        Addressed(QStringLiteral("You are Correct!"), QStringLiteral("Player %1 is Correct!")),
        game::AnswerTimeText(seconds), points);
    if (Streak() >= kStreak)
        mAnswerScreen.WriteNotice(QStringLiteral("%1 right in a row!").arg(Streak()));
    mAnswerScreen.CountUp(Score(), points);
    audio::Play(audio::Effect::Right);
    mAnswerScreen.Celebrate(Board().ChoiceBoxes()[static_cast<std::size_t>(choice - 1)]->Place(),
                            mPlayer);
}

void c_gMulti::DrawWrong() {
    mAnswerScreen.WriteWrong(
        Addressed(QStringLiteral("You are Wrong!"), QStringLiteral("Player %1 is Wrong!")),
        mQuestion.Title());
    mAnswerScreen.CountUp(Score(), 0);
    audio::Play(audio::Effect::Wrong);
}

void c_gMulti::ShowCover() {
    if (const auto cover = mCover ? mCover->Get() : std::nullopt) {
        mAnswerScreen.ShowCover(*cover);
        mCover.reset();
    }
}

bool c_gMulti::WaitForContinue() {
    mWindowButtons.Refresh();
    bCont.Refresh();
    Board().pCont->show();
    Board().pCont->setFocus();
    mAnswer = 0;
    WaitWhileShown([this] {
        ShowCover();
        return mAnswer != kContinue;
    });
    mCover.reset();
    mAnswerScreen.Close();
    Board().pCont->hide();
    return !mQuit;
}

bool c_gMulti::ShowResults() {
    Board().hide();
    c_hMulti highScores(mForms.scores, mForms.name);
    highScores.SetGame(Kind());
    if (std::ranges::max(mScores) > 0)
        audio::Play(audio::Effect::Fanfare);
    highScores.SetAndShowScores(mScores, Notices());
    if (!highScores.ExitProgram()) {
        if (mPlayers == 1)
            highScores.Check(mScores.front());
        else
            highScores.MultiCheck(mScores);
    }
    mQuit = highScores.ExitProgram();
    return highScores.PlayAgain() && !mQuit;
}

QStringList c_gMulti::Notices() {
    QStringList notices;
    if (const QString perfect = game::PerfectGame(mStreaks, kRounds); !perfect.isEmpty())
        notices << perfect;
    if (mForms.evening.IsNewBest(Kind(), std::ranges::max(mScores)))
        notices << QStringLiteral("New best of the evening");
    return notices;
}
