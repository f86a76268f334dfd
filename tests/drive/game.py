"""A game, played question by question; what is announced must be what is due."""

import re
import time

import hand
from files import has_title, table_of

QUESTION = "What is the Title of this Song?"
BETS = {"1 Second, 140,000 Points": 140000, "2 Seconds, 70,000 Points": 70000,
        "3 Seconds, 35,000 Points": 35000, "5 Seconds, 25,000 Points": 25000}
ROW = r"(\d+)\. ([^,]+), (\d+)(, new)?\."
QUICKPLAY = "QuickPlay (Select a Directory of MP3's)"
PLAYLIST = "PlayList (Select a playlist file)"
CREATE = "Create Playlist (Use Editor to create a playlist)"
NOT_CHOICES = {"Close", "Minimise", "Hint"}


def sentences(*texts):
    return " ".join(text if text[-1] in ".!?:" else f"{text}." for text in texts)


def numbered(texts):
    return sentences(*(f"{number}: {text}" for number, text in texts.items()))


def choose_game(use, players=1, betting=False):
    """From the menu; returns the name of the first button that was pressed."""
    first = "One player" if players == 1 else "Several players"
    use(first)
    use("Betting" if betting else "Normal Play")
    return first


def choose_list(program, use, playlist):
    use(PLAYLIST)
    program.choose_file("Load Playlist", playlist)


class Game:
    """`use` presses a button by its name; it is one of the program's, or Keys."""

    def __init__(self, program, use, betting=False, players=1):
        self.program = program
        self.use = use
        self.betting = betting
        self.scores = [0] * players
        self.turn = 0
        self.choices = {}  # by their keys
        self.chosen_bet = None

    @property
    def player(self):
        return self.turn % len(self.scores)

    def turns(self):
        """Every turn of the six rounds, from the question's or the bet's coming up on."""
        while self.turn < 6 * len(self.scores):
            self.begin()
            yield self.turn
            self.turn += 1

    def begin(self):
        players = len(self.scores)
        due = sentences(f"Round {self.turn // players + 1} of 6",
                        f"SCORE: {self.scores[self.player]}",
                        "Single Player Mode" if players == 1 else f"Player {self.player + 1}")
        if self.betting:
            due += " I can name that MP3 in: " + numbered(dict(enumerate(BETS, 1)))
        else:
            due += " " + QUESTION
        self.program.announced(re.escape(due), skip=self.turn == 0)

    def bet(self, seconds):
        self.chosen_bet = next(bet for bet in BETS if bet.startswith(seconds))
        self.choices = dict(enumerate(BETS, 1))
        self.use(self.chosen_bet)
        self.program.announced(re.escape(QUESTION))

    def start_clip(self):
        self.use("Play")
        self.read_choices(4)
        clock = re.compile(r"TIME: \d\d\.\d\d")
        assert self.program.seen(clock, "label"), "the clock cannot be read"
        song = self.program.playing()
        self.right_title = next(c for c in self.choices.values() if has_title(song, c))

    def read_choices(self, count):
        """As they are announced; the buttons must be the same."""
        heard = self.program.announced(" ".join([r"(\d): (.+)[.!?:]"] * count))
        keys = [int(key) for key in heard.groups()[0::2]]
        buttons = [b.get_name() for b in self.program.all("push button")]
        shown = [name for name in buttons if name not in NOT_CHOICES]
        self.choices = dict(zip(keys, shown))
        assert numbered(self.choices) == heard[0], f"announced was {heard[0]}, shown is {shown}"

    def take_hint(self):
        self.use("Hint")
        self.scores[self.player] = max(self.scores[self.player] - 10000, 0)
        self.read_choices(2)

    def answer(self, right=True):
        self.use(next(c for c in self.choices.values() if (c == self.right_title) == right))
        who = "You are" if len(self.scores) == 1 else f"Player {self.player + 1} is"
        if not right:
            wrong = sentences(f"{who} Wrong!", "The Correct Answer Is:", self.right_title)
            self.program.announced(re.escape(wrong))
            return
        points = int(self.program.announced(rf"{who} Correct! .+ (\d+) Points\.")[1])
        assert not self.betting or points == BETS[self.chosen_bet], f"{points} points"
        self.scores[self.player] += points

    def go_on(self):
        self.use("Continue")

    def ranks(self):
        """The players and their scores, best first."""
        return sorted(enumerate(self.scores, 1), key=lambda entry: -entry[1])

    def see_scores(self):
        rows = (f"{place}. Player {player}, {score}" for place, (player, score)
                in enumerate(self.ranks(), 1))
        self.program.announced(re.escape(sentences("SCORES", *rows)))

    def enter_names(self, before=lambda place: None):
        """Goes on to the table, which must have them as its new rows."""
        self.use("Continue")
        rows = []
        for place, (player, score) in enumerate([rank for rank in self.ranks() if rank[1] > 0], 1):
            prompt = ("You got a High Score! Please Enter your name below." if
                      len(self.scores) == 1 else
                      f"Player {place} got a High Score! Please Enter Their name below.")
            self.program.announced(re.escape(prompt))
            before(place)
            rows.append((f"Eva {player}", score))
            self.enter(rows[-1][0])
        heard = self.program.announced(rf"HIGH SCORES\.( {ROW}){{10}}")[0]
        table = re.findall(ROW, heard)
        assert [(row[1], int(row[2])) for row in table if row[3]] == rows, \
            f"the new rows are not {rows}: {table}"
        self.table = [(row[1], int(row[2])) for row in table]

    def enter(self, name):
        self.program.ready("Name", "text")
        hand.write(name)
        hand.key("Return")

    def leave(self):
        """Goes on from the table to the menu."""
        self.use("Continue")
        self.program.find("One player")
        assert self.table == self.kept(), f"announced was {self.table}, kept {self.kept()}"

    def end(self):
        """From the scores back to the menu."""
        self.see_scores()
        self.enter_names()
        self.leave()

    def kept(self):
        """The table in its file."""
        return table_of(self.program.data / ("H2.dat" if self.betting else "H1.dat"))


class Keys:
    """Plays a game by keys alone. Where the focus is due it must be in sight."""

    DOUBLE_PRESS = 0.35  # seconds; the program takes what comes sooner for a part of one press

    def __init__(self, program):
        self.program = program
        self.game = None  # which is made with this
        self.by_digits = True  # or on the choice's button
        self.pressed = 0

    def __call__(self, name):
        choices = self.game.choices
        key = next((str(key) for key, choice in choices.items() if choice == name), None)
        if key and not self.by_digits:
            self.move_to(name, list(choices.values()))
            key = "Return"
        elif name in ("Play", "Continue"):
            self.program.focused(name)
        else:
            self.program.ready(name)
        time.sleep(max(self.pressed + self.DOUBLE_PRESS - time.monotonic(), 0))
        hand.key(key or {"Play": "space", "Hint": "h", "Continue": "Return"}[name])
        self.pressed = time.monotonic()

    def move_to(self, name, column):
        """From the first of a column of buttons, where the focus is."""
        for button in column[:column.index(name)]:
            self.program.focused(button)
            hand.key("Down")
        self.program.focused(name)
