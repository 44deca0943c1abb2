"""PostScript from Python: drawing calls in, one document out.

    import psgraphics as ps

    with ps.PrintDocument("hello.ps") as document, document.page(240, 120):
        document.set_fill(ps.RGBColor(250, 190, 60))
        document.draw_rectangle(20, 20, 120, 80, 12, 12)
        document.set_font(ps.Font("Helvetica", 24))
        document.draw_text("hello", 150, 66)

Lengths are in points, y downwards from the top left corner of the page.
"""

import contextlib as _contextlib
import os as _os
import tempfile as _tempfile

from . import _native
from ._convert import (  # noqa: F401
    Conversion, ConversionError, ConvertedPage, PageFont, Simplification, convert, join)
from ._native import *  # noqa: F401,F403
from ._native import __version__  # noqa: F401


def _permissions(path):
    """Those of the file that stands there, else those that a new file gets."""
    try:
        return _os.stat(path).st_mode & 0o7777
    except FileNotFoundError:
        mask = _os.umask(0)
        _os.umask(mask)
        return 0o666 & ~mask


@_contextlib.contextmanager
def _replacement(path):
    """A stream whose bytes take the place of the file as soon as they are all written."""
    if _os.path.exists(path) and not _os.path.isfile(path):
        stream = _native.FileStream(path, truncate=False)
        yield stream
        stream.close()
        return
    path = _os.path.realpath(path)
    permissions = _permissions(path)
    folder, name = _os.path.split(path)
    descriptor, temporary = _tempfile.mkstemp(prefix=f".{name}.", dir=folder)
    _os.close(descriptor)
    try:
        stream = _native.FileStream(temporary)
        yield stream
        stream.close()
        _os.chmod(temporary, permissions)
        _os.replace(temporary, path)
    except BaseException:
        _os.unlink(temporary)
        raise


class _Document:
    """What both documents have beside their drawing: context managers and output to a path."""

    _path = None

    def _take_path(self, output):
        """The stream to begin with: none yet for a path, whose file is made at the end."""
        if isinstance(output, (str, bytes, _os.PathLike)):
            self._path = _os.fsdecode(output)
            return None
        return output

    def end_document(self):
        """Writes the whole file. A file of a path takes its place when it is whole."""
        if self._path is None:
            super().end_document()
            return
        with _replacement(self._path) as stream:
            self.set_output_stream(stream)
            super().end_document()

    @_contextlib.contextmanager
    def page(self, width, height):
        """A page of this size in points, ended with the block."""
        self.start_page(width, height)
        yield self
        self.end_page()

    def __enter__(self):
        self.start_document()
        return self

    def __exit__(self, kind, error, trace):
        if kind is None:
            self.end_document()


class PSDocument(_Document, _native.PSDocument):
    """A document of LanguageLevel 2, written to a path, a binary file, a Stream, or nowhere yet.

    It knows no clips, no translucency and fills by the non-zero rule; `set_transform` is to be
    called on every page before the first drawing. `kern_text` adds what kerned text needs.
    """

    def __init__(self, output=None, kern_text=False):
        super().__init__(self._take_path(output), kern_text)


class PrintDocument(_Document, _native.PrintDocument):
    """A document of LanguageLevel 3 or an Encapsulated PostScript file (`form`), written to a
    path, a binary file, a Stream, or nowhere yet.

    It clips, keeps text as text, and takes every kind of paint; a translucent one looks as it does
    on white paper. `colors` is a ColorConverter that brings all colours to one space.
    """

    def __init__(self, output=None, **settings):
        super().__init__(self._take_path(output), **settings)
