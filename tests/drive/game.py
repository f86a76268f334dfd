"""A game, played step by step; every announcement is checked."""

import re

import hand
from program import table_of

QUESTION = "What is the Title of this Song?"
BETS = {"1 Second, 140,000 Points": 140000, "2 Seconds, 70,000 Points": 70000,
        "3 Seconds, 35,000 Points": 35000, "5 Seconds, 25,000 Points": 25000}
ROW = r"(\d+)\. ([^,]+), (\d+)(, new)?\."
QUICKPLAY = "QuickPlay (Select a Directory of MP3's)"
PLAYLIST = "PlayList (Select a playlist file)"
PLAYERS = re.compile(r"\d+")  # how many, as the list of them shows
NOT_CHOICES = {"Close", "Minimise", "Volume", "Hint"}


def sentences(*texts):
    return " ".join(text if text[-1] in ".!?:" else f"{text}." for text in texts)


def numbered(texts):
    return sentences(*(f"{number}: {text}" for number, text in texts.items()))


class Game:
    """Played by mouse. Turns count from 1."""

    def __init__(self, program, betting=False, players=1):
        self.program = program
        self.use = program.click  # presses a button
        self.betting = betting
        self.kind = "Betting" if betting else "Normal Play"
        self.scores = [0] * players
        self.told = None  # the score that was announced last
        self.turn = 0
        self.choices = {}  # by their keys
        self.entered = []  # the rows of the table that have been entered

    @property
    def player(self):
        return (self.turn - 1) % len(self.scores)

    def choose(self, playlist):
        """Goes from the menu to the first question of one or two players."""
        self.use("One player" if len(self.scores) == 1 else "Several players")
        self.use(self.kind)
        self.choose_list(playlist)

    def choose_list(self, playlist):
        self.use(PLAYLIST)
        self.program.choose_file("Load Playlist", playlist)

    def moments(self, wrong=(), late=(), hints=()):
        """Plays all turns, gives wrong or late answers and takes hints in some of them, and goes on
        to the table of high scores and back to the menu. Yields the name of each moment that waits
        for the player."""
        for self.turn in range(1, 6 * len(self.scores) + 1):
            self.begin()
            if self.betting:
                yield f"bet {self.turn}"
                bet = list(BETS)[1 if self.turn in late else 3]
                self.use(bet)
                self.program.announced(re.escape(QUESTION))
            yield f"question {self.turn}"
            self.start_clip()
            yield f"clip {self.turn}"
            if self.turn in hints:
                self.take_hint()
                yield f"hint {self.turn}"
            if self.turn in late:
                self.program.announced(r"The clip is over\.")
                yield f"late {self.turn}"
            points = self.answer(right=self.turn not in wrong)
            assert not self.betting or points in (0, BETS[bet]), f"{points} points"
            yield f"result {self.turn}"
            self.use("Continue")
        failed = {turn % len(self.scores) for turn in wrong}
        self.see_scores(perfect=len(failed) < len(self.scores))
        yield "scores"
        self.use("Continue")
        yield from self.enter_names()
        yield "table"
        self.use("Continue")
        self.program.ready("One player")

    def play(self, **turns):
        """Plays the whole game."""
        for _ in self.moments(**turns):
            pass

    def addressed(self, one, several="Player {}"):
        return one if len(self.scores) == 1 else several.format(self.player + 1)

    def new_score(self):
        """What is announced about the player's score."""
        told, self.told = self.told, self.scores[self.player]
        return [] if told == self.told else [f"SCORE: {self.told}."]

    def begin(self):
        self.choices = dict(enumerate(BETS, 1)) if self.betting else {}
        asked = f"I can name that MP3 in: {numbered(self.choices)}" if self.betting else QUESTION
        due = sentences(f"Round {(self.turn - 1) // len(self.scores) + 1} of 6", *self.new_score(),
                        self.addressed("Single Player Mode"), asked)
        self.program.announced(re.escape(due), skip=self.turn == 1)

    def start_clip(self):
        self.use("Play")
        self.read_choices(4)
        self.program.find(re.compile(r"TIME: \d\d\.\d\d"), "label")
        song = self.program.wait("the song of this turn",
                                 lambda: self.program.noted()[self.turn - 1:])[-1]
        title = song.read_bytes()[-125:-96].decode("cp1252").rstrip("\0 ")  # as far as it fits
        self.right_title = next(c for c in self.choices.values() if c[:29].rstrip() == title)

    def read_choices(self, count, before=()):
        """Reads the choices as announced after the texts `before`; the buttons must agree."""
        heard = self.program.announced(" ".join([*before, *[r"(\d): (.+)[.!?:]"] * count]))
        shown = self.program.wait("the choices", lambda: [
            name for button in self.program.all("push button")
            if (name := button.get_name()) not in NOT_CHOICES])
        self.choices = dict(zip(map(int, heard.groups()[0::2]), shown))
        assert heard[0].endswith(numbered(self.choices)), f"heard {heard[0]}, shown is {shown}"

    def take_hint(self):
        self.use("Hint")
        self.scores[self.player] = max(self.scores[self.player] - 10000, 0)
        self.read_choices(2, before=self.new_score())

    def answer(self, right):
        """Answers right or wrong and returns the points."""
        self.use(next(c for c in self.choices.values() if (c == self.right_title) == right))
        who = self.addressed("You are", "Player {} is")
        wrong = sentences(f"{who} Wrong!", "The Correct Answer Is:", self.right_title)
        verdict = (rf"{who} Correct! .+ (\d+) Points\.(?: \d right in a row!)?" if right else
                   f"{re.escape(wrong)}()")
        said = self.program.announced(rf"{verdict}(?: SCORE: \d+\.)? By .+")
        points = int(said[1] or 0)
        self.scores[self.player] += points
        told = re.findall(r"SCORE: \d+\.", said[0])
        assert self.new_score() == told, f"not the score of {self.scores}: {said[0]}"
        return points

    def ranks(self):
        """The players and their scores, best first."""
        return sorted(enumerate(self.scores, 1), key=lambda entry: -entry[1])

    def see_scores(self, perfect):
        best = max(self.scores) if len(self.scores) > 1 else None
        rows = (f"{place}. Player {player}, {score}" + ", winner" * (score == best > 0)
                for place, (player, score) in enumerate(self.ranks(), 1))
        due = re.escape(sentences("SCORES", self.kind, *rows))
        self.program.announced(due + " .*perfect game!" * perfect)

    def enter_names(self):
        """Enters names, which must be the new rows of the table and come to its file."""
        for place, (player, score) in enumerate(self.ranks(), 1):
            if score == 0:
                break
            self.program.announced(rf"Place \d+\. {score} Points\.")
            self.program.find(re.compile(".+ got a High Score! .+"), "label")
            self.program.ready("Name", "text")
            yield f"name {place}"
            self.entered.append((f"Eva {player}", score))
            hand.write(f"Eva {player}")
            hand.key("Return")
        heard = self.program.announced(rf"HIGH SCORES\. {self.kind}\.( {ROW}){{10}}")[0]
        rows = [(name, int(score), new) for _, name, score, new in re.findall(ROW, heard)]
        assert [row[:2] for row in rows if row[2]] == self.entered, f"not {self.entered}: {heard}"
        file = self.program.data / ("H2.dat" if self.betting else "H1.dat")
        self.program.wait(f"{heard} in its file",
                          lambda: table_of(file) == [row[:2] for row in rows])
