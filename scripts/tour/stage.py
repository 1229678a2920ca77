"""What a walk needs around it: a screen, the program, the simulated phone, folders of their own."""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SCREEN_SIZE = "1280x800x24"
END_LIMIT = 15  # seconds for a program to end when asked


def end(process):
    """Asks a program to end and returns its exit status."""
    if process.poll() is None:
        process.terminate()
    try:
        return process.wait(END_LIMIT)
    except subprocess.TimeoutExpired:
        process.kill()
        return process.wait()


@contextlib.contextmanager
def running(*command, **options):
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        end(process)


@contextlib.contextmanager
def session_bus(log):
    """A D-Bus session, and a folder of sockets, of the walk's own; the bus's words go to `log`.
    What it starts works on the screen that there is by then."""
    reading, writing = os.pipe()
    bus = ("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--print-address={writing}")
    # The paths of sockets have to be short.
    with (tempfile.TemporaryDirectory() as sockets, open(log, "w", encoding="utf-8") as words):
        os.environ["XDG_RUNTIME_DIR"] = sockets
        with running(*bus, pass_fds=[writing], stdout=words, stderr=words):
            os.close(writing)
            with open(reading, encoding="utf-8") as answer:
                os.environ["DBUS_SESSION_BUS_ADDRESS"] = answer.readline().strip()
            yield


@contextlib.contextmanager
def screen(size=SCREEN_SIZE, *manager):
    """An X server without a monitor, with a window manager that gets the options `manager`;
    DISPLAY leads there."""
    reading, writing = os.pipe()
    server = ("Xvfb", "-displayfd", str(writing), "-screen", "0", size, "-nolisten", "tcp")
    with running(*server, pass_fds=[writing], stderr=subprocess.DEVNULL):
        os.close(writing)
        with open(reading, encoding="ascii") as answer:
            os.environ["DISPLAY"] = ":" + answer.readline().strip()
        with running("openbox", *manager, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):
            yield


@contextlib.contextmanager
def desktop(theme):
    """A desktop that prefers "light" or "dark"."""
    with running(sys.executable, str(Path(__file__).with_name("portal.py")), theme):
        owned = ("gdbus", "wait", "--session", "--timeout", "60", "org.freedesktop.portal.Desktop")
        subprocess.run(owned, check=True)
        yield


def grab(*options):
    """A picture of the screen, as the bytes of a file of the format that the options name."""
    return subprocess.run(["import", "-window", "root", *options], check=True,
                          stdout=subprocess.PIPE).stdout


def still_picture(quiet, limit):
    """The screen, as soon as nothing was painted for `quiet` seconds, and after `limit` anyway."""
    end = time.monotonic() + limit
    before, since = grab("ppm:-"), time.monotonic()
    while time.monotonic() < min(since + quiet, end):
        time.sleep(0.1)
        now = grab("ppm:-")
        if now != before:
            before, since = now, time.monotonic()
    return before


def take_picture(file):
    """The windows on the black screen, cut out; a moving picture never comes to rest."""
    subprocess.run(["convert", "ppm:-", "-trim", "+repage", str(file)],
                   input=still_picture(quiet=0.1, limit=0.5), check=True)


class Stage:
    """One walk's program and phone. `folder` is made anew and holds all that they write; they run
    in the `environment` besides."""

    def __init__(self, build: Path, folder: Path, language_code: str, **environment: str):
        shutil.rmtree(folder, ignore_errors=True)
        self._build, self._folder, self._environment = build, folder, environment
        self._link = folder / "data/Tessarin/ports/COM3"
        self._link.parent.mkdir(parents=True)
        registry = folder / "config/Tessarin/registry.ini"
        registry.parent.mkdir(parents=True)
        registry.write_text(f'[SOFTWARE\\Tessarin]\nLanguage="{language_code}"\n', encoding="utf-8")
        self._log = open(folder / "log", "w", encoding="utf-8")
        self.program = self.phone = None

    def _start(self, *command):
        environment = os.environ | {
            "XDG_DATA_HOME": str(self._folder / "data"),
            "XDG_CONFIG_HOME": str(self._folder / "config"),
            "XDG_CACHE_HOME": str(self._folder / "cache"),
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        } | self._environment
        return subprocess.Popen([str(each) for each in command], env=environment,
                                stdout=self._log, stderr=self._log)

    def start_program(self):
        self.program = self._start(self._build / "bin/tessarin")
        return self.program.pid

    def require_program(self):
        if self.program.poll() is not None:
            raise AssertionError(f"the program has ended with {self.program.returncode}, "
                                 f"see {self._folder / 'log'}")

    def program_end(self, limit):
        """Waits for the program to end by itself; its exit status, or None after `limit` seconds."""
        try:
            return self.program.wait(limit)
        except subprocess.TimeoutExpired:
            return None

    def start_phone(self, *options):
        self.phone = self._start(self._build / "phonesim/tessarin-phonesim", "--link", self._link,
                                 "--content", self._folder / "phone", "--battery", "charge",
                                 *options)

    def size_of(self, file):
        """In bytes, of a file in the application folder."""
        return (self._folder / "data/Tessarin" / file).stat().st_size

    def end_phone(self):
        """Unplugs the phone; fails when it has a breach of the protocol to report."""
        status = end(self.phone)
        self.phone = None
        if status != 0:
            raise AssertionError(f"the phone ended with {status}, see {self._folder / 'log'}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in (self.program, self.phone):
            if process is not None:
                end(process)
        self._log.close()
