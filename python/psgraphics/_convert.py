"""Whole drawings and pictures to documents, by the program psrender.

A process of its own: the interpreter goes on meanwhile, and whatever an input does to the converter
leaves Python alone.
"""

import dataclasses
import os
import pathlib
import re
import shutil
import subprocess
from typing import List

_WRONG_USAGE, _PAGES_SKIPPED = 2, 3
_PAGE = re.compile(r"([\d.]+) x ([\d.]+) pt, (\d+) shapes, ([\d.]+) ms")


class ConversionError(RuntimeError):
    """Nothing was written; the text is psrender's own, `code` its exit code (below 0 for the
    signal that ended it).
    """

    def __init__(self, text, code):
        super().__init__(text)
        self.code = code


@dataclasses.dataclass
class ConvertedPage:
    """What became of one input. `simplified` has a sentence for each kind of thing that is shown
    in another way than the drawing says.
    """

    input: str
    width: float
    height: float
    shapes: int
    milliseconds: float
    simplified: List[str] = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class Conversion:
    """The pages in their order, what was skipped with `keep_going`, and all other messages."""

    pages: List[ConvertedPage] = dataclasses.field(default_factory=list)
    skipped: List[str] = dataclasses.field(default_factory=list)
    messages: List[str] = dataclasses.field(default_factory=list)


def find_program():
    """psrender: what PSRENDER names, the one that was installed with this package, or the first
    on the path. Raises FileNotFoundError.
    """
    named = os.environ.get("PSRENDER")
    prefix = pathlib.Path(__file__).resolve().parents[4]
    for candidate in filter(None, [named, prefix / "bin" / "psrender", "psrender"]):
        found = shutil.which(candidate)
        if found:
            return found
    raise FileNotFoundError("psrender is not there; install it, or name it by PSRENDER")


def _words(options):
    """Command-line words: `paper="A4"` is --paper A4, `fit=True` is --fit."""
    words = []
    for name, value in options.items():
        option = "--" + name.replace("_", "-")
        if value is True:
            words.append(option)
        elif value is not None and value is not False:
            words += [option, str(value)]
    return words


def _read_messages(text, inputs):
    """Sorts the lines of psrender. Names may hold anything, so they are looked for, not parsed."""
    done, simplified = Conversion(), {}
    for line in text.splitlines():
        line = line.removeprefix("psrender: ")
        is_warning = line.startswith("warning: ")
        rest = line.removeprefix("warning: ")
        name = max((name for name in inputs if rest.startswith(name + ":")), key=len, default=None)
        page = name is not None and _PAGE.fullmatch(rest[len(name) + 2:])
        if page and not is_warning:
            done.pages.append(ConvertedPage(name, float(page[1]), float(page[2]), int(page[3]),
                                            float(page[4]), simplified.pop(name, [])))
        elif name is not None and is_warning:
            simplified.setdefault(name, []).append(rest[len(name) + 1:].lstrip())
        elif line.endswith(" (page skipped)"):
            done.skipped.append(line.removesuffix(" (page skipped)"))
        else:
            done.messages.append(line)
    return done


def convert(inputs, output, *, program=None, words=(), **options):
    """Makes one document, a page for each of `inputs`: paths of drawings and pictures, or one
    alone; a binary file object is read as standard input. `output` is a path, whose file takes its
    place when it is whole, or a binary file object.

    `options` are psrender's: paper="A4", fit=True, keep_going=True, max_dpi=300 ... `words` are
    more of them as they stand on its command line.

    Returns a Conversion; raises ConversionError, and then nothing was written.
    """
    if isinstance(inputs, (str, bytes, os.PathLike)) or hasattr(inputs, "read"):
        inputs = [inputs]
    streams = [item for item in inputs if hasattr(item, "read")]
    if len(streams) > 1:
        raise ValueError("only one input can be a file object")
    names = ["-" if hasattr(item, "read") else _plain(item) for item in inputs]
    to_file = not hasattr(output, "write")
    command = [program or find_program(), "--verbose", "-o", _plain(output) if to_file else "-",
               *_words(options), *words, "--", *names]
    ended = subprocess.run(command, capture_output=True,
                           input=streams[0].read() if streams else b"")
    text = ended.stderr.decode("utf-8", "surrogateescape")
    if ended.returncode not in (0, _PAGES_SKIPPED):
        lines = text.strip().splitlines() or [f"psrender ended by {ended.returncode}"]
        # Advice follows a wrong option; all that was said about pages precedes a failure.
        line = lines[0 if ended.returncode == _WRONG_USAGE else -1]
        raise ConversionError(line.removeprefix("psrender: "), ended.returncode)
    if not to_file:
        output.write(ended.stdout)
    return _read_messages(text, [*names, "standard input"])


def _plain(path):
    """A name that is not taken for standard input or output."""
    name = os.fsdecode(path)
    return "./-" if name == "-" else name
