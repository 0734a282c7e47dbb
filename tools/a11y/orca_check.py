"""Plays the game from the keys beside the real Orca screen reader and reads
Orca's log for what a player hears: a help page read and closed by Escape,
a message box's buttons said as Tab reaches them, every focus on an object
with a name, and the focused card's standing ("cannot be played now") true
whenever the game waits for a card. Started by orca-check inside with-orca,
which gives Orca's log in ORCA_LOG.
"""

import argparse
import os
import re
import subprocess
import sys
import time

import pyatspi

import keys_player
from listen import Listener, serve_until_stopped

SPEECH = re.compile(r"SPEECH OUTPUT: '(.*)' ?\{'established")
FOCUS = re.compile(r"Changing locusOfFocus from .* to \[([^|\]]*) \| ([^\]]*)\]")
CARD = re.compile(r"^(Ace|Ten|King|Queen|Jack|Nine) of (Diamonds|Clubs|Hearts|Spades)")
CANNOT = "cannot be played now"
STANDING_TOLD = re.compile(r"((?:Ace|Ten|King|Queen|Jack|Nine) of (?:Diamonds|Clubs|Hearts|Spades)) "
                           r"(can|cannot) be played now")


class OrcaLog:
    """Orca's log, read as it grows."""

    def __init__(self, path):
        self.path = path
        self.spoken = []
        self.focus = []  # (role, name) of each object Orca moved its focus to
        self.offset = 0

    def read(self):
        try:
            with open(self.path, encoding="utf-8", errors="replace") as log:
                log.seek(self.offset)
                text = log.read()
        except OSError:
            return
        # Only whole lines; the rest waits for the next read.
        end = text.rfind("\n") + 1
        self.offset += len(text[:end].encode("utf-8", errors="replace"))
        for line in text[:end].splitlines():
            speech = SPEECH.search(line)
            if speech:
                self.spoken.append(speech.group(1))
            focus = FOCUS.search(line)
            if focus:
                self.focus.append((focus.group(1).strip(), focus.group(2).strip()))

    def since(self, mark):
        self.read()
        return self.spoken[mark:]


class Check:
    def __init__(self, listener, log):
        self.listener = listener
        self.log = log
        self.step = "help"
        self.mark = 0
        self.at = time.monotonic()
        self.heard = {}
        self.failures = []
        self.standing_checks = 0
        self.stale = []
        self.standing_seen = (None, None, 0)

    def key(self, name):
        subprocess.run(["xdotool", "key", "--clearmodifiers", name], check=False)

    def move_on(self, step):
        self.log.read()
        self.mark = len(self.log.spoken)
        self.step = step
        self.at = time.monotonic()

    def waited(self, seconds):
        return time.monotonic() - self.at > seconds

    def window(self, role, name_part):
        app = self.listener.app
        for index in range(app.childCount):
            try:
                window = app.getChildAtIndex(index)
                if (window.getRole() == role and name_part in (window.name or "")
                        and window.getState().contains(pyatspi.STATE_SHOWING)):
                    return window
            except Exception:
                continue
        return None

    def tick(self):
        """One step of the check; True once it is over."""
        self.log.read()
        if self.step == "help":
            if self.listener.focus_table():
                self.key("F1")
                self.move_on("help open")
        elif self.step == "help open":
            if self.window(pyatspi.ROLE_DIALOG, "Help Page 1") and self.waited(2):
                self.heard["a help page opens"] = self.log.since(self.mark)
                self.key("Tab")
                self.move_on("help tab")
            elif self.waited(10):
                self.failures.append("F1 brought no help page")
                self.move_on("deal")
        elif self.step == "help tab":
            if self.waited(1.5):
                self.heard["Tab on the help page"] = self.log.since(self.mark)
                self.key("Return")
                self.move_on("help enter")
        elif self.step == "help enter":
            if self.waited(2):
                self.heard["Enter on its next page's button"] = self.log.since(self.mark)
                self.key("Escape")
                self.move_on("help closed")
        elif self.step == "help closed":
            if self.waited(2):
                if self.window(pyatspi.ROLE_DIALOG, "Help Page"):
                    self.failures.append("Escape left the help page open")
                self.heard["Escape on the help page"] = self.log.since(self.mark)
                self.move_on("deal")
        elif self.step == "deal":
            if self.listener.focus_table():
                self.key("F2")
                self.move_on("dealt")
        elif self.step == "dealt":
            if any("UpCard is" in text for text in self.listener.spoken()) and self.waited(4):
                self.key("F2")
                self.move_on("box open")
        elif self.step == "box open":
            if self.waited(2):
                self.heard["a message opens"] = self.log.since(self.mark)
                self.key("Tab")
                self.move_on("box tab")
        elif self.step == "box tab":
            if self.waited(1.5):
                self.heard["Tab in the message"] = self.log.since(self.mark)
                self.key("Tab")
                self.move_on("box back")
        elif self.step == "box back":
            if self.waited(1.5):
                self.heard["Tab again"] = self.log.since(self.mark)
                self.key("Escape")
                self.move_on("play")
        elif self.step == "play":
            if self.waited(1):
                self.check_standing()
                if keys_player.step(self.listener, self.key):
                    return True
        return False

    def said_of_card(self, i):
        """The card and whether Orca said it cannot be played, when the i-th
        thing it said is a card taking the focus (its description follows)
        or a notification telling the focused card's new standing."""
        spoken = self.log.spoken
        told = STANDING_TOLD.search(spoken[i])
        if told:
            return told.group(1), told.group(2) == "cannot"
        card = CARD.match(spoken[i])
        if not card or " push button" not in spoken[i]:
            return None
        following = spoken[i + 1] if i + 1 < len(spoken) else ""
        return card.group(0), CANNOT in spoken[i] or following.startswith(CANNOT)

    def claims(self):
        """What Orca last said of each card's standing: True for "cannot be
        played now"."""
        said = dict(filter(None, map(self.said_of_card, range(len(self.log.spoken)))))
        return said

    def check_standing(self):
        """While the game waits for a card that must follow (some card of the
        hand cannot be played), the focused card that can be played must not
        be the one Orca last said cannot; checked once the table has held
        still a moment."""
        focused = self.listener.focused
        try:
            name, role = focused.name, focused.getRole()
            description = focused.description
        except Exception:
            return
        card = CARD.match(name or "")
        if role != pyatspi.ROLE_PUSH_BUTTON or not card:
            self.standing_seen = (None, None, 0)
            return
        cannot = CANNOT in description
        seen_card, seen_cannot, ticks = self.standing_seen
        ticks = ticks + 1 if (seen_card, seen_cannot) == (card.group(0), cannot) else 1
        self.standing_seen = (card.group(0), cannot, ticks)
        if ticks != 3:
            return
        hand, _, _ = self.listener.read_tree()
        waits_for_follow = any(CANNOT in (node.description or "") for *_, node in hand
                               if node.getRole() == pyatspi.ROLE_PUSH_BUTTON)
        said = self.claims().get(card.group(0))
        if said is None or not (waits_for_follow or cannot):
            return
        self.standing_checks += 1
        if said != cannot:
            self.stale.append(f"{card.group(0)}: Orca last said it "
                              f"{'cannot' if said else 'can'} be played, "
                              f"it {'cannot' if cannot else 'can'} now")

    def check_played(self):
        """Each card the player played was not last said to be unplayable."""
        said = {}
        for i, text in enumerate(self.log.spoken):
            said.update(filter(None, [self.said_of_card(i)]))
            for played in re.findall(r"is playing (\w+ of \w+)", text):
                self.standing_checks += 1
                if said.get(played):
                    self.stale.append(f"{played} was played, Orca last said it cannot be")

    def report(self):
        for moment, texts in self.heard.items():
            print(f"{moment}:")
            for text in texts:
                print("    " + text[:300])
        opening = " ".join(self.heard.get("a message opens", []))
        tab = " ".join(self.heard.get("Tab in the message", []))
        again = " ".join(self.heard.get("Tab again", []))
        if "No Continue push button" not in opening:
            self.failures.append("the message's first button was not said as it opened")
        if " ".join(self.log.spoken).count("Really start a new one") != 1:
            self.failures.append("the message's text was said more than once")
        if "Yes New Game push button" not in tab:
            self.failures.append("Tab in the message did not say the next button")
        if "No Continue push button" not in again:
            self.failures.append("Tab round the message did not come back to its first button")
        page = " ".join(self.heard.get("a help page opens", []))
        if "Help Page 1 dialog Welcome to Pinochle" not in page:
            self.failures.append("the help page and its words were not read as it opened")
        if "Page 2 Help push button" not in " ".join(self.heard.get("Tab on the help page", [])):
            self.failures.append("Tab on the help page did not say its next button")
        if "Help Page Two dialog" not in " ".join(
                self.heard.get("Enter on its next page's button", [])):
            self.failures.append("Enter on the help page's button did not bring the next page")
        unnamed = [role for role, name in self.log.focus if not name]
        print(f"Orca's focus moved {len(self.log.focus)} times, "
              f"{len(unnamed)} of them to an object without a name")
        for role in sorted(set(unnamed)):
            print(f"    {unnamed.count(role)} x {role}")
        if unnamed:
            self.failures.append(f"{len(unnamed)} focus changes to an object without a name")
        self.check_played()
        print(f"the focused card's standing checked {self.standing_checks} times, "
              f"{len(self.stale)} stale")
        for text in self.stale:
            print("    " + text)
        if self.standing_checks == 0:
            self.failures.append("the card's standing was never checked")
        if self.stale:
            self.failures.append(f"{len(self.stale)} stale standings")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--seconds", type=float, default=600)
    parser.add_argument("--verbose", action="store_true")
    args = parser.parse_args()
    log = OrcaLog(os.environ["ORCA_LOG"])
    log.read()
    if not any("Screen reader on" in text for text in log.spoken):
        print("skipped: Orca is not speaking in this session")
        return 77

    listener = Listener(argparse.Namespace(verbose=args.verbose, need_focus=False, play=True,
                                           robot_name="Lorinda"))
    listener.app_name = os.path.basename(args.program).capitalize()
    for kind in ("object:state-changed:showing", "object:announcement", "window:activate",
                 "object:state-changed:focused", "object:property-change:accessible-name"):
        pyatspi.Registry.registerEventListener(listener.on_event, kind)
    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1")
    game = subprocess.Popen([args.program], env=env)
    check = Check(listener, log)
    deadline = time.monotonic() + args.seconds
    done = {"played": False}

    def tick():
        if game.poll() is not None or time.monotonic() > deadline:
            pyatspi.Registry.stop()
            return False
        if listener.app is None:
            listener.app = listener.find_app()
            return True
        if check.tick():
            done["played"] = True
            pyatspi.Registry.stop()
            return False
        return True

    serve_until_stopped(tick, game)
    time.sleep(1)
    log.read()
    check.report()
    if not done["played"]:
        check.failures.append(f"the hand was not played out by keys (stopped at {check.step})")
    check.failures += keys_player.report(listener)
    for failure in check.failures:
        print("FAILED: " + failure)
    return 1 if check.failures else 0


if __name__ == "__main__":
    sys.exit(main())
