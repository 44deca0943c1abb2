"""What the tests of the Python package share: pages as pixels, and the words on them."""

import pathlib
import subprocess

import numpy as np
import pytest


def _run(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


class Pages:
    """A PostScript file as its readers see it."""

    def __init__(self, path):
        self.path = pathlib.Path(path)

    def text(self):
        return self.path.read_bytes().decode("latin-1")

    def pixels(self, dpi=72, crop=False):
        """The first page as an array of RGB bytes, rows from the top."""
        raw = _run("gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=ppmraw", f"-r{dpi}",
                   "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-dLastPage=1",
                   *(["-dEPSCrop"] if crop else []), "-sOutputFile=-", "-sstdout=%stderr",
                   str(self.path))
        # "P6", a comment of the writer, the size, the greatest value.
        lines = [line for line in raw.split(b"\n", 4)[:4] if not line.startswith(b"#")]
        width, height = map(int, lines[1].split())
        rest = raw[len(raw) - 3 * width * height:]
        return np.frombuffer(rest, np.uint8).reshape(height, width, 3)

    def words(self):
        pdf = self.path.with_suffix(".pdf")
        _run("ps2pdf", "-dEPSCrop", str(self.path), str(pdf))
        return _run("pdftotext", "-layout", str(pdf), "-").decode().split()


@pytest.fixture
def pages(tmp_path):
    """Gives the pages of bytes, or of a file in the test's own folder."""
    def make(content):
        if isinstance(content, bytes):
            path = tmp_path / "pages.ps"
            path.write_bytes(content)
            return Pages(path)
        return Pages(content)
    return make
