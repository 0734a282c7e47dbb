"""A player who presses only keys and knows the table only from what a
screen reader reads of it: the focused card and whether it plays now, the
shown buttons, the message boxes. Driven by listen.py --play, one step at a
time; it ends once the hand's totals have been answered.
"""

import re

import pyatspi

FIGURE = re.compile(r"^(.+), total melds, (-?\d+)$")


class KeysPlayer:
    def __init__(self):
        self.quiet_ticks = 0
        self.moves = 0
        self.box_was_open = False
        self.keys = []
        self.hand_over = False
        self.figures_at_end = {}
        self.answered_totals = False

    def dialog(self, app):
        """The message box open now, if one is."""
        for index in range(app.childCount):
            window = app.getChildAtIndex(index)
            try:
                states = window.getState()
            except Exception:
                continue
            if window.getRole() == pyatspi.ROLE_DIALOG and states.contains(pyatspi.STATE_SHOWING):
                return window
        return None

    def step(self, listener, key):
        # One key at a time: the next waits until what it did has been told.
        if self.quiet_ticks > 0:
            self.quiet_ticks -= 1
            return False
        spoken = listener.spoken()
        if not self.hand_over and any(t.find("End of the hand") >= 0 for t in spoken):
            self.hand_over = True
            _, figures, _ = listener.read_tree()
            for name in figures:
                match = FIGURE.match(name)
                if match:
                    self.figures_at_end[match.group(1)] = int(match.group(2))
        box = self.dialog(listener.app)
        if box is None and self.box_was_open:
            # A desktop's window manager gives the table the focus back when
            # a message closes; the bare X display of the tests has none.
            listener.focus_table()
        self.box_was_open = box is not None
        if box is not None:
            # The hand's last message: its totals, or the hand won or lost.
            if self.hand_over:
                self.answered_totals = True
            self.press(key, "Return")
            return False
        if self.hand_over:
            # Nothing is left to play: only the totals' message is awaited.
            return self.answered_totals
        focused = listener.focused
        if focused is None:
            self.press(key, "Tab")
            return False
        try:
            name, role, description = focused.name, focused.getRole(), focused.description
        except Exception:
            self.press(key, "Tab")
            return False
        if role == pyatspi.ROLE_PUSH_BUTTON and " of " in name:
            if description == "":
                self.moves = 0
                self.press(key, "Return")
                self.quiet_ticks = 3
            elif self.moves < 13:
                # Walk the hand for a card that plays, round from the left.
                self.moves += 1
                self.press(key, "Home" if self.moves == 13 else "Right")
            else:
                # No card plays: look among the table's buttons.
                self.moves = 0
                self.press(key, "Tab")
            return False
        # A meld offer opens on its first button; Escape takes the card.
        if name == "Double Pinochle":
            self.press(key, "Escape")
        else:
            self.press(key, "Return" if name.startswith("Cancel and Take Card") else "Tab")
        return False

    def press(self, key, name):
        self.keys.append(name)
        key(name)
        self.quiet_ticks = max(self.quiet_ticks, 1)


PLAYER = KeysPlayer()


def step(listener, key):
    return PLAYER.step(listener, key)


def report(listener):
    """What was heard against what the table showed; a list of failures."""
    spoken = " ".join(listener.spoken())
    failures = []
    robot = listener.robot_name
    cards = len(re.findall(robot + r" (plays the|plays|has played) \w+ of \w+", spoken))
    tricks = len(re.findall(r"(takes the trick for \d+ points?|'s trick score is \d+)", spoken))
    print(f"keys pressed: {len(PLAYER.keys)}; heard {cards} robot cards, {tricks} tricks")
    if tricks != 24:
        failures.append(f"{tricks} tricks told, not 24")
    if cards < 24:
        failures.append(f"{cards} robot cards told, not 24")
    if "End of the hand" not in spoken:
        failures.append("the hand's totals were not told")
    for side, total in PLAYER.figures_at_end.items():
        told = 0
        for match in re.finditer(re.escape(side) + r" ?(?:melds [^.]* for (\d+) points?|"
                                 r"scores (\d+) for|scores for run (\d+)|"
                                 r"melded Dix for (\d+) points)", spoken):
            told += int(next(g for g in match.groups() if g))
        print(f"{side}: melds told {told}, total melds shown {total}")
        if told != total:
            failures.append(f"{side}'s melds told add to {told}, the panel shows {total}")
    return failures
