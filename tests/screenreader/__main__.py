"""A user who sees nothing works the whole window: every page, the language, the status bar.

Runs the real program beside the simulated phone on a screen, a session bus and an accessibility bus
of its own. Prints a line a step, and ends with 1 when one failed.
"""

import argparse
import signal
import sys
import time
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(TREE / "scripts/tour"))

# The tour's modules are found from here on.
# pylint: disable=wrong-import-position
import screen
import stage
from reader import Reader


def take(reader, steps):
    """False when a step failed."""
    for step in steps:
        began = time.monotonic()
        try:
            seen, well = step(reader), True
        except (AssertionError, TimeoutError, screen.Gone) as reason:
            seen, well = f"FAILED: {reason}; on the screen: {reader.open_windows()}", False
        took = time.monotonic() - began
        print(f"{step.__name__.replace('_', ' ')}: {seen} ({took:.1f} s)", flush=True)
        if not well:
            return False
    return True


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--out", type=Path, required=True)
    options = parser.parse_args()
    with (stage.screen(), stage.session_bus(options.out / "bus.log"),
          stage.Stage(options.build, options.out / "home", "en") as scene):
        bus = screen.connect()
        return 0 if take(Reader(bus, scene, TREE), Reader.STEPS) else 1


if __name__ == "__main__":
    sys.exit(main())
