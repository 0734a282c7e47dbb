"""Listens to Trickhaven on the accessibility bus as a screen reader would.

Started inside an X display and a D-Bus session with the accessibility bus
up (see run-listen). It starts the game, deals with F2, collects what Orca
speaks (notifications coming into view, announcements, the window and focus
changes) and reads the tree: the hand's cards as buttons with their names,
the score figures with their sides. With --play it then plays on from the
keyboard alone, choosing each key by what the tree says.
"""

import argparse
import os
import re
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

import keys_player

CARD = re.compile(r"^(Ace|Ten|King|Queen|Jack|Nine) of (Diamonds|Clubs|Hearts|Spades)$")
FIGURE = re.compile(
    r"^(.+), (last trick|total tricks|last meld|total melds|total score), (-?\d+)$")


class Listener:
    def __init__(self, args):
        self.args = args
        self.heard = []  # (seconds, kind, role, text)
        self.start = time.monotonic()
        self.app = None
        self.failures = []
        self.game = None
        self.focused = None
        self.names = {}
        self.robot_name = args.robot_name

    def note(self, kind, source, text):
        try:
            role = source.getRoleName()
        except Exception:  # the object may be gone already
            role = "?"
        self.heard.append((time.monotonic() - self.start, kind, role, text))
        if self.args.verbose:
            print(f"{time.monotonic() - self.start:7.2f} {kind} [{role}] {text}", flush=True)

    def on_event(self, event):
        try:
            if not self.from_game(event.source):
                return
            kind = event.type
            if kind.startswith("object:property-change:accessible-name"):
                # The name as it was set: by the time a later event is read
                # the object may bear a newer one.
                name = event.any_data
                self.names[hash(event.source)] = (
                    name if isinstance(name, str) else event.source.name)
            elif kind.startswith("object:state-changed:showing"):
                if event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
                    self.note("notification", event.source,
                              self.names.get(hash(event.source), event.source.name))
            elif kind.startswith("object:announcement"):
                self.note("announcement", event.source, str(event.any_data))
            elif kind.startswith("window:activate"):
                self.note("window", event.source, event.source.name)
            elif kind.startswith("object:state-changed:focused"):
                if event.detail1:
                    self.focused = event.source
                    self.note("focus", event.source, event.source.name)
        except Exception as error:  # a gone object must not stop the listener
            if self.args.verbose:
                print("event error:", error, flush=True)

    def from_game(self, source):
        try:
            app = source.getApplication()
            return app is not None and app.name == self.app_name
        except Exception:
            return False

    # The tree.

    def find_app(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for index in range(desktop.childCount):
            child = desktop.getChildAtIndex(index)
            if child is not None and child.name == self.app_name:
                return child
        return None

    def walk(self, node, depth=0):
        if node is None or depth > 40:
            return
        yield node
        try:
            count = node.childCount
        except Exception:
            return
        for index in range(count):
            try:
                yield from self.walk(node.getChildAtIndex(index), depth + 1)
            except Exception:
                continue

    def read_tree(self):
        cards, figures, buttons = [], [], []
        for node in self.walk(self.app):
            try:
                name, role = node.name, node.getRole()
                states = node.getState()
            except Exception:
                continue
            if CARD.match(name) or name == "card back":
                cards.append((name, role, states.contains(pyatspi.STATE_FOCUSABLE),
                              states.contains(pyatspi.STATE_FOCUSED),
                              states.contains(pyatspi.STATE_SHOWING), node))
            elif FIGURE.match(name):
                figures.append(name)
            elif role == pyatspi.ROLE_PUSH_BUTTON and states.contains(pyatspi.STATE_SHOWING):
                buttons.append((name, node))
        return cards, figures, buttons

    def check_tree(self):
        cards, figures, _ = self.read_tree()
        hand = [c for c in cards if c[1] == pyatspi.ROLE_PUSH_BUTTON]
        print(f"tree: {len(cards)} cards, {len(hand)} hand buttons: "
              + ", ".join(sorted(c[0] for c in hand)))
        for name, _, focusable, _, _, node in hand:
            description = node.description
            print(f"  button {name!r} focusable={focusable} description={description!r}")
        print("figures: " + " | ".join(figures))
        if len(hand) != 12 or not all(CARD.match(c[0]) for c in hand):
            self.failures.append(f"the hand shows {len(hand)} named card buttons, not 12")
        if self.args.need_focus and not all(c[2] for c in hand):
            self.failures.append("a card of the hand cannot take the focus")
        sides = {FIGURE.match(f).group(1) for f in figures}
        if len(figures) != 10 or len(sides) != 2:
            self.failures.append(f"{len(figures)} score figures named with {len(sides)} sides")

    def focus_table(self):
        """Gives the table's window the keyboard; false while it is not up."""
        window = subprocess.run(["xdotool", "search", "--onlyvisible", "--name",
                                 "Trickhaven|Target"], capture_output=True, text=True).stdout.split()
        if window:
            subprocess.run(["xdotool", "windowfocus", "--sync", window[0]], check=False)
        return bool(window)

    def spoken(self):
        return [text for _, kind, _, text in self.heard if kind in ("notification", "announcement")]


def serve_until_stopped(tick, game):
    """Serves the bus, calling tick every 200 ms until it stops the
    registry, then ends the game."""
    GLib.timeout_add(200, tick)
    pyatspi.Registry.start()
    game.terminate()
    try:
        game.wait(5)
    except subprocess.TimeoutExpired:
        game.kill()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--seconds", type=float, default=20)
    parser.add_argument("--verbose", action="store_true")
    parser.add_argument("--need-focus", action="store_true",
                        help="fail when a card of the hand cannot take the focus")
    parser.add_argument("--play", action="store_true",
                        help="play a whole hand from the keyboard")
    parser.add_argument("--robot-name", default="Lorinda")
    args = parser.parse_args()

    listener = Listener(args)
    listener.app_name = os.path.basename(args.program).capitalize()
    # Orca listens to name changes too; without a listener for them Qt's
    # bridge sends none, and the client's cache would give a notification
    # its old name.
    for kind in ("object:state-changed:showing", "object:announcement", "window:activate",
                 "object:state-changed:focused", "object:property-change:accessible-name",
                 "object:property-change:accessible-description"):
        pyatspi.Registry.registerEventListener(listener.on_event, kind)

    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1")
    game = subprocess.Popen([args.program], env=env)
    listener.game = game
    deadline = time.monotonic() + args.seconds
    state = {"dealt": False, "checked": False}

    def key(name):
        subprocess.run(["xdotool", "key", "--clearmodifiers", name], check=False)

    def tick():
        if game.poll() is not None or time.monotonic() > deadline:
            pyatspi.Registry.stop()
            return False
        if listener.app is None:
            listener.app = listener.find_app()
            return True
        if not state["dealt"]:
            if listener.focus_table():
                key("F2")
                state["dealt"] = True
                state["dealt_at"] = time.monotonic()
            return True
        if not state["checked"] and any("UpCard is" in t for t in listener.spoken()):
            state["checked"] = True
            listener.check_tree()
            if not args.play:
                pyatspi.Registry.stop()
                return False
        if args.play and state["checked"]:
            if keys_player.step(listener, key):
                state["played"] = True
                pyatspi.Registry.stop()
                return False
        return True

    serve_until_stopped(tick, game)

    spoken = listener.spoken()
    print(f"heard {len(spoken)} spoken texts:")
    for text in spoken:
        print("  " + text)
    if not state["checked"]:
        listener.failures.append("the deal's commentary was never heard")
    if args.play:
        listener.failures += keys_player.report(listener)
        if not state.get("played"):
            listener.failures.append("the hand was not played out from the keys")
    for failure in listener.failures:
        print("FAILED: " + failure)
    return 1 if listener.failures else 0


if __name__ == "__main__":
    sys.exit(main())
