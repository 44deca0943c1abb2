"""Whole drawings through psrender."""

import base64
import io
import os
import pathlib

import numpy as np
import pytest
from matplotlib.image import imsave

import psgraphics as ps

PROGRAM = os.environ.get("PSRENDER")
pytestmark = pytest.mark.skipif(not PROGRAM, reason="PSRENDER names no program")

SQUARE = """<svg xmlns="http://www.w3.org/2000/svg" width="72pt" height="36pt">
<rect width="30" height="20" fill="red"/>{}</svg>"""


@pytest.fixture
def drawings(tmp_path):
    (tmp_path / "a: 1.svg").write_text(SQUARE.format(""))
    (tmp_path / "odd.svg").write_text(SQUARE.format('<foreignObject width="9" height="9"/>'))
    (tmp_path / "broken.svg").write_text("<svg")
    return tmp_path


def test_pages_and_what_was_simplified_come_back(drawings):
    done = ps.convert([drawings / "a: 1.svg", drawings / "odd.svg"], drawings / "out.ps",
                      paper="A4", fit=True, landscape=False)
    plain, odd = done.pages
    assert plain.input == str(drawings / "a: 1.svg") and plain.simplified == []
    assert (plain.width, plain.height) == pytest.approx((595.3, 841.9), abs=1)
    (kind,) = odd.simplified
    assert "foreignObject" in kind.element and (kind.count, kind.line) == (1, 2)
    assert str(kind) == f"line 2: {kind.sentence}"
    assert (drawings / "out.ps").read_bytes().startswith(b"%!PS")


def test_fonts_and_pictures_are_told(drawings):
    text = """<svg xmlns="http://www.w3.org/2000/svg" width="90" height="40">
<text y="9" font-family="DejaVu Sans">a</text><text y="19" font-family="No Such Family">b</text>
<image width="9" height="9" href="data:image/png;base64,{0}"/>
<image x="9" width="9" height="9" href="data:image/png;base64,{0}"/></svg>"""
    png = io.BytesIO()
    imsave(png, np.zeros((2, 3, 3), np.uint8), format="png")
    (drawings / "text.svg").write_text(text.format(base64.b64encode(png.getvalue()).decode()))
    (page,) = ps.convert(drawings / "text.svg", drawings / "out.ps").pages
    # Whatever stands in for the missing family, which may well be the other font.
    assert "DejaVuSans" in [font.name for font in page.fonts if font.way == "embedded"]
    assert sum([font.stands_for for font in page.fonts], []) == ["No Such Family"]
    assert page.pictures == {(3, 2): 2}


def test_files_of_python_serve_on_both_sides(drawings):
    output = io.BytesIO()
    done = ps.convert(io.BytesIO(SQUARE.format("").encode()), output)
    assert len(done.pages) == 1 and output.getvalue().startswith(b"%!PS")
    assert done.pages[0].width == pytest.approx(72, abs=0.1)


def test_parts_become_one_document(drawings):
    parts = [drawings / f"{i}.ps" for i in range(3)]
    for part in parts:
        ps.convert([drawings / "a: 1.svg", drawings / "odd.svg"], part)
    assert ps.join(parts, drawings / "all.ps") == []
    assert b"%%Pages: 6\n" in (drawings / "all.ps").read_bytes()
    with pytest.raises(ps.ConversionError, match="odd.svg: is no PostScript document"):
        ps.join([parts[0], drawings / "odd.svg"], drawings / "all.ps")


def test_failures_write_nothing_and_say_why(drawings):
    target = drawings / "out.ps"
    target.write_text("before")
    with pytest.raises(ps.ConversionError, match="broken.svg:1:") as raised:
        ps.convert([drawings / "a: 1.svg", drawings / "broken.svg"], target)
    assert raised.value.code == 1 and target.read_text() == "before"
    done = ps.convert([drawings / "a: 1.svg", drawings / "broken.svg"], target, keep_going=True)
    assert len(done.pages) == 1 and "broken.svg:1:" in done.skipped[0]
    with pytest.raises(ps.ConversionError, match="no-such-option"):
        ps.convert(drawings / "odd.svg", target, no_such_option=True)
    with pytest.raises(FileNotFoundError):
        ps.convert(drawings / "odd.svg", target, program="/no/such/program")


def test_a_converter_that_is_killed_is_told_apart(drawings):
    program = drawings / "killed"
    program.write_text("#!/bin/sh\nkill -9 $$\n")
    program.chmod(0o755)
    with pytest.raises(ps.ConversionError) as raised:
        ps.convert(pathlib.Path("x.svg"), drawings / "out.ps", program=str(program))
    assert raised.value.code == -9
