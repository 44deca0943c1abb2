"""Fonts, text that is found again, and pictures from arrays."""

import io

import numpy as np
import pytest
from matplotlib.image import imsave

import psgraphics as ps

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


def test_text_and_glyphs_are_found_again(pages):
    program = ps.open_font_file(FONT)
    output = io.BytesIO()
    with ps.PrintDocument(output) as document, document.page(400, 200):
        document.set_stroke(None)
        document.set_fill(ps.RGBColor(0, 0, 0))
        document.set_font(ps.Font("Helvetica", 20, 700))
        document.draw_text("Standard", 20, 40)
        document.set_font(ps.Font("DejaVu Serif", 20, slant=ps.FontSlant.ITALIC))
        document.draw_text("Größe", 20, 80, spacing=1)
        glyphs = program.map_glyphs("ﬁshing")
        advances = np.cumsum([0] + [program.advance(glyph) / 50 for glyph in glyphs[:-1]])
        document.draw_glyphs(glyphs, [[20 + x, 120] for x in advances], ["fi", *"shing"], program,
                             20)
        with pytest.raises(ValueError, match=r"positions must be an array of shape \(n, 2\)"):
            document.draw_glyphs(glyphs, [1, 2], None, program, 20)
    assert pages(output.getvalue()).words() == ["Standard", "Größe", "fishing"]


def test_font_programs_tell_their_figures():
    program = ps.open_font_file(FONT)
    assert program.metrics.family_name == "DejaVu Sans" and program.file == (FONT, 0)
    assert program.kind == ps.FontKind.TRUE_TYPE and program.embeddable
    a, v, missing = program.map_glyphs("AV\U0010fffd", script="Latn")
    assert missing is None and program.glyph_name(a) == "A"
    assert program.advance(a) == pytest.approx(684, abs=1) and program.kerning(a, v) > 0
    outline = program.outline(a)
    assert outline.commands[0][0] == "move_to" and outline.commands[-1] == ("close",)
    assert program.covers("A") and not program.covers("\U0010fffd")
    standard = ps.find_font(ps.Font("Times", 10, 700, ps.FontSlant.ITALIC))
    assert standard.metrics.post_script_name == "Times-BoldItalic"
    ps.register_font("Mine", 400, ps.FontSlant.UPRIGHT, program)
    assert ps.find_font(ps.Font("Mine", 10)).metrics.family_name == "DejaVu Sans"
    assert ps.find_font_for("\u2713", ps.Font("Helvetica", 10)).covers("\u2713")


@pytest.mark.parametrize("shape, space, expected, has_alpha", [
    ((2, 3), None, "GRAY", False),
    ((2, 3, 1), None, "GRAY", False),
    ((2, 3, 2), None, "GRAY", True),
    ((2, 3, 3), None, "RGB", False),
    ((2, 3, 4), None, "RGB", True),
    ((2, 3, 4), ps.ColorSpace.CMYK, "CMYK", False),
    ((2, 3, 5), None, "CMYK", True),
])
def test_arrays_are_pictures_by_their_components(shape, space, expected, has_alpha):
    array = np.arange(np.prod(shape), dtype=np.uint8).reshape(shape)
    picture = ps.RasterImage(array[::-1], space=space)  # views serve as well
    assert picture.size == (3, 2) and picture.color_space.name == expected
    assert picture.has_alpha == has_alpha
    components = {"GRAY": 1, "RGB": 3, "CMYK": 4}[expected]
    colors = array[::-1].reshape(2, 3, -1)
    assert (picture.pixels().reshape(2, 3, -1) == colors[..., :components]).all()
    if has_alpha:
        assert (picture.alpha() == colors[..., -1]).all()
    else:
        assert picture.alpha() is None


def same_size_png(colors):
    file = io.BytesIO()
    imsave(file, colors)
    return file.getvalue()


def test_files_are_pictures(tmp_path):
    colors = np.arange(24, dtype=np.uint8).reshape(2, 4, 3)
    path = tmp_path / "löwe.png"
    imsave(path, colors)
    picture = ps.Image.from_file(path)
    assert picture.size == (4, 2) and not picture.has_alpha
    assert (picture.pixels() == colors).all()
    same = ps.Image.from_bytes(path.read_bytes())
    assert same.key == picture.key
    path.write_bytes(b"no picture")
    with pytest.raises(ps.ImageLostError, match="löwe.png: "), ps.PrintDocument(io.BytesIO()) as d:
        with d.page(100, 100):
            d.draw_image(picture, 0, 0, 40, 20)
    with pytest.raises(ValueError, match="löwe.png: is no PNG, JPEG, GIF or WebP image"):
        ps.Image.from_file(path)
    with pytest.raises(ps.ImageError, match="more than the limit of 7"):
        ps.Image.from_bytes(same_size_png(colors), most_pixels=7)


def test_pictures_that_are_opaque_or_equal_or_wrong():
    gray = np.zeros((2, 2), np.uint8)
    opaque = ps.RasterImage(gray, alpha=np.full((2, 2), 255))
    assert not opaque.has_alpha and opaque.key == ps.RasterImage(gray).key
    assert ps.RasterImage(gray.astype(bool)).color_space == ps.ColorSpace.ONE_BIT
    assert ps.RasterImage(gray, interpolated=True).interpolated
    tinted = ps.TintedImage(opaque, [(0.5, 1)])
    assert tinted.pixels()[0, 0] == 128
    for wrong, kind, message in [
            (lambda: ps.RasterImage(np.zeros((2, 2))), TypeError, "astype"),
            (lambda: ps.RasterImage(np.zeros(2, np.uint8)), ValueError, "shape"),
            (lambda: ps.RasterImage(gray, space=ps.ColorSpace.RGB), ValueError, "3 components"),
            (lambda: ps.RasterImage(gray, alpha=[1]), ValueError, "alpha must have"),
            (lambda: ps.RasterImage(np.zeros((2, 2, 4), np.uint8), alpha=gray), ValueError, "own")]:
        with pytest.raises(kind, match=message):
            wrong()
