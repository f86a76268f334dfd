"""Ways from the menu through all screens and panels outside the games. They yield the names of what
is reached."""

import hand
from game import PLAYERS, PLAYLIST, QUICKPLAY, Game
from program import place_of, song_count


def message(program, name, pattern, key="Return"):
    program.message(pattern)
    yield name
    program.answer(pattern, key)


def dialog(program, name, title, path=None):
    """A file dialog, which is cancelled without a path."""
    program.ready(title, "dialog")
    yield name
    program.choose_file(title, path)


def editor(program):
    """Makes a list of the sample songs, corrects, plays and saves it, and leads back."""
    program.click("Playlist editor")
    program.ready("Songs", "table")
    yield "editor"
    program.click("Add Directory")
    yield from dialog(program, "editor's folder dialog", "Add Folder", program.data / "Music")
    program.announced(r"\d+ songs\.", skip=True)
    yield "editor filled"
    program.click("Artist", "table column header")
    program.announced(r"Sorted by Artist, ascending\.")
    program.click("Silent Night", "table cell")
    hand.xdotool("keydown", "shift")
    program.click("Canon in D", "table cell")
    hand.xdotool("keyup", "shift", "keydown", "ctrl")
    program.click("Für Elise", "table cell")
    hand.xdotool("keyup", "ctrl")
    table = program.find("Songs", "table")
    program.wait("the marked songs", lambda: len(table.get_selected_rows()) == 5)
    yield "editor marked"
    place = place_of(table)
    program.changes(place, lambda: hand.key("shift+F10"))
    yield "editor's menu"
    program.changes(place, lambda: hand.key("Escape"))
    program.click("Remove")
    program.gone("Für Elise", "table cell")
    yield from title_dialog(program)
    yield from preview(program)
    hand.key("ctrl+f")
    hand.write("nothing")
    yield "editor finds nothing"
    hand.key("Escape")
    program.click("Exit Editor")
    yield from message(program, "not saved", "The new list is not saved.*", key="c")
    program.click("Save PlayList")
    yield from dialog(program, "editor's save dialog", "Save Playlist", "Mine")
    mine = program.data / "PlayList/Mine.m3u"
    program.wait("the saved list", lambda: song_count(mine) == 18)
    yield "editor saved"
    program.click("Exit Editor")


def title_dialog(program):
    program.click("Minuet in G", "table cell", times=2)
    program.ready("Song Title", "text")
    yield "title dialog"
    hand.key("ctrl+a")
    hand.write("An artist - A title of some length: of the tour")
    hand.key("alt+t")
    yield "title dialog with a long text"
    hand.key("alt+p")


def preview(program):
    program.click("An artist", "table cell")
    program.click("Play")
    wind = program.ready("Fast forward")
    yield "preview"
    program.click("Play")
    hand.move_to(wind)
    hand.xdotool("mousedown", 1)
    yield "preview wound"
    hand.xdotool("mouseup", 1)
    program.click("Close")
    program.gone("Fast forward")


def second_stage(program):
    program.click("Several players")
    program.ready("Betting")
    yield "second stage"
    program.click(PLAYERS, "combo box")
    yield "list of players"
    hand.key("Down", "Down", "Return")
    program.find("4", "combo box")
    program.click("Back")


def chooser(program):
    """Leads to the chooser, by what it refuses and its waiting window."""
    program.click("One player")
    program.click("Normal Play")
    program.ready(QUICKPLAY)
    yield "chooser"
    program.click(PLAYLIST)
    yield from dialog(program, "file dialog", "Load Playlist")
    yield from message(program, "no playlist selected", "No Playlist was selected.*")
    long_search = program.stage.folder / "untitled"
    long_search.mkdir()
    for number in range(20000):
        (long_search / f"{number:05}.mp3").touch()
    program.click(QUICKPLAY)
    yield from dialog(program, "folder dialog", "Add Folder", long_search)
    program.announced(r"Searching for MP3s\.", skip=True)
    yield "searching"
    yield from message(program, "no song titles", "Warning .* no song titles.*", key="n")
    dead = program.stage.folder / "dead.m3u"
    dead.write_text("none.mp3\n" * 10000)
    Game(program).choose_list(dead)
    program.announced("(Loading|None).*", skip=True)
    yield "loading"
    program.answer(".*can.* be played.*", "Escape")


def high_scores(program):
    program.click("High scores")
    program.ready("Betting")
    yield "high scores"
    program.click("Betting")
    program.ready("Normal Play")
    yield "high scores of betting"
    program.click("Close")
