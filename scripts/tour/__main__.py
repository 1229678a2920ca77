"""Walks through the program as a user would, on a screen of its own, and takes pictures.

    scripts/run --tour [language-theme ...]

Prints one line a step: what was done, what was seen, how long it took. Ends with 1 when a step
failed. The pictures are build/tour/<language>-<theme>-<step>.png.
"""

import signal
import sys
import time
from pathlib import Path

import screen
import stage
from texts import Texts
from walk import Walk

TREE = Path(__file__).resolve().parents[2]
BUILD = TREE / "build/release"
OUT = TREE / "build/tour"
CODES = {"English": "en", "French": "fra", "German": "ger", "Italian": "it", "Romanian": "rom",
         "Russian": "ru", "SimplifiedChinese": "sch", "Spanish": "spa", "TraditionalChinese": "tch"}
WALKS = ("English-light", "English-dark", "German-light", "SimplifiedChinese-light")


def there(walk):
    try:
        return f"on the screen: {walk.open_windows()}"
    except screen.Gone as reason:
        return f"the program does not answer ({reason})"


def take(bus, name, steps):
    """One walk. False when a step failed."""
    language, theme = name.split("-")
    print(f"{language}, {theme}", flush=True)
    with (stage.desktop(theme),
          stage.Stage(BUILD, OUT / name.lower(), CODES[language]) as scene):
        walk = Walk(bus, scene, Texts(TREE, language), theme)
        for number, step in enumerate(steps, 1):
            began = time.monotonic()
            try:
                seen, well = step(walk), True
            except (AssertionError, TimeoutError, screen.Gone) as reason:
                seen, well = f"FAILED: {reason}; {there(walk)}", False
            took = time.monotonic() - began
            print(f"  {number:2}. {step.__doc__}: {seen} ({took:.2f} s)", flush=True)
            shot = step.__name__.replace("_", "-") if well else "failed"
            if scene.program.poll() is None:
                stage.take_picture(OUT / f"{name.lower()}-{shot}.png")
            if not well:
                return False
    return True


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    OUT.mkdir(parents=True, exist_ok=True)
    for old in OUT.glob("*.png"):
        old.unlink()
    chosen = sys.argv[1:] or WALKS
    began = time.monotonic()
    with stage.screen(), stage.session_bus(OUT / "bus.log"):
        bus = screen.connect()
        failed = [name for name in chosen
                  if not take(bus, name, Walk.WHOLE if name == WALKS[0] else Walk.SHORT)]
    print(f"{len(chosen) - len(failed)} of {len(chosen)} walks went well, "
          f"in {time.monotonic() - began:.0f} s; pictures in {OUT.relative_to(TREE)}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
