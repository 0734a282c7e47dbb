"""What Orca spoke of the game's telling, counted from its own log: the
characters of every notification, Orca's word "notification" and its space
included, divided by the tricks told. The text of a message box, with its
title, is left out: Orca reads the box itself; so is what the review tells
on demand (the listener asks for the trumps once).

    orca_count.py ORCA_LOG [--tricks N] [--most N]   (exit 1 when above N a trick)

The tricks are those told in the log, unless --tricks gives their number.
"""

import argparse
import re
import sys

SPOKEN = re.compile(r"SPEECH OUTPUT: '(.*)'\s*(\{.*\})?$")
NOTIFICATION = "notification "
TRICK = re.compile(r"'s trick, \d+\.")
REVIEW = re.compile(r"^\w+ are Trumps\. The up card")


def spoken_lines(log):
    with open(log, errors="replace") as lines:
        for line in lines:
            found = SPOKEN.search(line.rstrip("\n"))
            if found:
                yield found.group(1)


def without_messages(text, dialogs):
    for dialog in dialogs:
        at = text.find(dialog)
        if dialog and at >= 0:
            # The box's title goes before its text, as a sentence of its own.
            start = text.rfind(". ", 0, max(at - 2, 0))
            start = 0 if start < 0 else start + 2
            text = text[:start] + text[at + len(dialog):]
    return text


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("log")
    parser.add_argument("--tricks", type=int)
    parser.add_argument("--most", type=float)
    args = parser.parse_args()
    lines = list(spoken_lines(args.log))
    dialogs = [line[len("dialog "):].strip() for line in lines if line.startswith("dialog ")]
    notices = [line[len(NOTIFICATION):] for line in lines
               if line.startswith(NOTIFICATION) and not REVIEW.match(line[len(NOTIFICATION):])]
    tricks = args.tricks or sum(len(TRICK.findall(notice)) for notice in notices)
    characters = 0
    for notice in notices:
        play = without_messages(notice, dialogs)
        if re.search(r"\w", play):
            characters += len(NOTIFICATION) + len(play.strip())
    per_trick = characters / tricks if tricks else float("inf")
    print(f"Orca spoke {len(notices)} notifications; {characters} characters of play over "
          f"{tricks} tricks: {per_trick:.1f} a trick")
    return 1 if args.most is not None and per_trick > args.most else 0


if __name__ == "__main__":
    sys.exit(main())
