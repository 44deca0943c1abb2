"""Whole drawings and pictures to documents, by the program psrender.

A process of its own: the interpreter goes on meanwhile, and whatever an input does to the converter
leaves Python alone.
"""

import dataclasses
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
from typing import Dict, List, Tuple

_SKIPPED = " (page skipped)"
_WRONG_USAGE, _PAGES_SKIPPED, _SIMPLIFIED = 2, 3, 4


class ConversionError(RuntimeError):
    """Nothing was written; the text is psrender's own, `code` its exit code (below 0 for the
    signal that ended it).
    """

    def __init__(self, text, code):
        super().__init__(text)
        self.code = code


@dataclasses.dataclass
class Simplification:
    """A kind of thing that is shown in another way than the drawing says: how often, and where the
    first one stands (`line` is 0 where that is not known).
    """

    sentence: str
    count: int
    element: str
    line: int
    column: int

    def __str__(self):
        place = f"line {self.line}: " if self.line else ""
        times = f" ({self.count} times)" if self.count > 1 else ""
        return place + self.sentence + times


@dataclasses.dataclass
class PageFont:
    """`way` is "embedded", "printer" (a standard font, which every printer has) or "outlined".
    `stands_for` has the families that are not installed, in whose place it is.
    """

    name: str
    way: str
    stands_for: List[str]


@dataclasses.dataclass
class ConvertedPage:
    """What became of one input: the size in points, fonts, the pixels of each picture and how
    often it is shown, and what was simplified.
    """

    input: str
    width: float
    height: float
    fonts: List[PageFont]
    pictures: Dict[Tuple[int, int], int]
    simplified: List[Simplification]


@dataclasses.dataclass
class Conversion:
    """The pages in their order, what was skipped with `keep_going`, and all other messages."""

    pages: List[ConvertedPage]
    skipped: List[str]
    messages: List[str]


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


def _page(facts, names):
    """The page that an object of psrender's report speaks of."""
    fonts = [PageFont(font["name"], font["way"], font["for"]) for font in facts["fonts"]]
    pictures = {}
    for picture in facts["pictures"]:
        size = picture["width"], picture["height"]
        pictures[size] = pictures.get(size, 0) + picture["places"]
    return ConvertedPage(names[facts["number"] - 1], facts["width"], facts["height"], fonts,
                         pictures, [Simplification(**kind) for kind in facts["simplified"]])


def _conversion(report, said, names):
    lines = [line.removeprefix("psrender: ") for line in said.splitlines()]
    return Conversion([_page(facts, names) for facts in json.loads(report)],
                      [line.removesuffix(_SKIPPED) for line in lines if line.endswith(_SKIPPED)],
                      [line for line in lines if not line.endswith(_SKIPPED)])


def _run(command, data):
    """What psrender reports and says."""
    ended = subprocess.run(command, capture_output=True, input=data)
    said = ended.stderr.decode("utf-8", "surrogateescape")
    if ended.returncode not in (0, _PAGES_SKIPPED, _SIMPLIFIED):
        lines = said.strip().splitlines() or [f"psrender ended by {ended.returncode}"]
        # Advice follows a wrong option; all that was said about pages precedes a failure.
        line = lines[0 if ended.returncode == _WRONG_USAGE else -1]
        raise ConversionError(line.removeprefix("psrender: "), ended.returncode)
    return ended.stdout.decode("utf-8"), said


def join(parts, output, *, program=None):
    """Makes one document of those that `convert` or psrender wrote to the paths `parts`, in their
    order: fonts, forms and pictures that they have in common are there once. `output` is a path,
    whose file takes its place when it is whole.

    Returns psrender's messages; raises ConversionError, and then nothing was written.
    """
    _, said = _run([program or find_program(), "--join", "-o", _plain(output), "--",
                    *map(_plain, parts)], b"")
    return [line.removeprefix("psrender: ") for line in said.splitlines()]


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
    data = streams[0].read() if streams else b""

    def run(path):
        command = [program or find_program(), "--json", "-o", path, *_words(options), *words, "--",
                   *names]
        return _conversion(*_run(command, data),
                           ["standard input" if name == "-" else name for name in names])

    if not hasattr(output, "write"):
        return run(_plain(output))
    with tempfile.TemporaryDirectory(prefix="psgraphics-") as folder:
        path = os.path.join(folder, "document")
        done = run(path)
        with open(path, "rb") as document:
            shutil.copyfileobj(document, output)
    return done


def _plain(path):
    """A name that is not taken for standard input or output."""
    name = os.fsdecode(path)
    return "./-" if name == "-" else name
