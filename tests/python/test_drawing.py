"""Drawing through the interface: what arrives on the page, singly and by whole arrays."""

import io

import numpy as np
import pytest

import psgraphics as ps

RED, GREEN, BLUE = ps.RGBColor(255, 0, 0), ps.RGBColor(0, 128, 0), ps.RGBColor(0, 0, 255)


def drawn(draw, kind=ps.PrintDocument, **settings):
    """The bytes of a document with one page of 100 by 100 points."""
    output = io.BytesIO()
    with kind(output, **settings) as document, document.page(100, 100):
        document.set_transform()
        document.set_stroke(None)
        draw(document)
    return output.getvalue()


def body(content):
    """The page alone."""
    return content[content.index(b"%%Page:"):content.index(b"%%Trailer")]


def test_every_kind_of_paint_and_shape_shows_where_it_belongs(pages):
    def draw(d):
        d.set_fill(RED)
        d.draw_rectangle(0, 0, 20, 20)
        d.set_fill(ps.SolidColorBrush(BLUE, 0.5))
        d.draw_ellipse(30, 10, 10, 10)
        d.set_fill(ps.LinearGradientBrush((40, 0), (60, 0), [(0, RED), (1, BLUE)]))
        d.draw_rectangle(40, 0, 20, 20, radius_x=4, radius_y=4)
        tile = d.create_pattern_context(4, 4)
        tile.set_stroke(None)
        tile.set_fill(GREEN)
        tile.draw_rectangle(0, 0, 2, 4)
        d.set_fill(ps.PatternBrush(tile))
        d.draw_rectangle(60, 0, 20, 20)
        field = np.zeros((2, 2, 3), np.uint8)
        field[1] = 255
        d.set_fill(ps.ColorFieldBrush((80, 0), (20, 20), field))
        d.draw_path(ps.Path.rectangle(80, 0, 20, 20))
        d.set_fill(None)
        d.set_stroke(ps.Stroke(ps.SolidColorBrush(GREEN), 4, dashes=[10, 10]))
        d.draw_line(0, 30, 100, 30)
        d.set_stroke(None)
        d.set_clip([ps.Path.rectangle(0, 40, 10, 10)])
        d.set_fill(RED)
        d.draw_path(ps.Path.from_arrays([[0, 40], [40, 40], [40, 60], [0, 60]], closed=True))
        d.set_clip()
        star = d.create_document_fragment(10, 10)
        star.set_stroke(None)
        star.set_fill(BLUE)
        star.draw_rectangle(0, 0, 5, 5)
        d.place_fragment(star, [[50, 50], [70, 50]])
        d.set_transform((2, 0, 0, 2, 0, 0))
        d.draw_image(ps.RasterImage(np.array([[[0, 255, 255]]], np.uint8)), 0, 40, 5, 5)
        d.set_fill(GREEN)
        d.draw_stencil(ps.RasterImage(np.array([[True, False]])), 20, 40, 10, 5)

    page = pages(drawn(draw)).pixels()
    def near(x, y, color):
        return np.abs(page[y, x].astype(int) - color).max() < 12

    assert near(10, 10, (255, 0, 0))
    assert near(30, 10, (127, 127, 255))
    assert page[10, 42, 0] > 200 > 60 > page[10, 58, 0]
    assert near(61, 10, (0, 128, 0)) and near(63, 10, (255, 255, 255))
    assert page[1, 90].max() < 40 and page[18, 90].min() > 215
    assert near(5, 30, (0, 128, 0)) and near(15, 30, (255, 255, 255))
    assert near(5, 45, (255, 0, 0)) and near(20, 45, (255, 255, 255))
    assert near(52, 52, (0, 0, 255)) and near(72, 52, (0, 0, 255)) and near(60, 52, (255,) * 3)
    assert near(5, 85, (0, 255, 255))
    assert near(45, 85, (255, 255, 255)) and near(55, 85, (0, 128, 0))


def test_both_documents_write_what_they_are_told():
    def draw(d):
        d.set_fill(RED)
        d.set_property("title", "Grüße")
        d.draw_rectangle(1, 2, 3, 4)

    assert b"1 2 3 4 re" in drawn(draw)
    old = drawn(draw, ps.PSDocument)
    assert b"%%LanguageLevel: 2" in old and b"1 2 m" in old
    output = io.BytesIO()
    document = ps.PSDocument(output, kern_text=True)
    document.start_document()
    document.set_printing_options(num_copies=3, duplex=True)
    document.start_page(100, 100)
    document.end_page()
    document.end_document()
    assert b"/NumCopies 3" in output.getvalue()


def test_settings_and_requests_reach_the_file():
    def draw(d):
        d.set_fill(RED)
        d.draw_rectangle(10, 10, 30, 30)

    sheet = drawn(draw, form=ps.FileForm.EPS_SHEET)
    assert b"EPSF-3.0" in sheet and b"%%BoundingBox: 0 0 100 100" in sheet
    assert b"%%BoundingBox: 10 60 40 90" in drawn(draw, form=ps.FileForm.EPS_INK)
    assert b"0 1 1 0 k" in drawn(draw, colors=ps.ColorConverter(ps.ColorSpace.CMYK))
    asked = []

    def convert(space, color):
        asked.append((space, color))
        return [0.25]

    assert b".25 g" in drawn(draw, colors=ps.ColorConverter(ps.ColorSpace.GRAY, convert))
    assert (ps.ColorSpace.RGB, (1, 0, 0)) in asked
    output = io.BytesIO()
    with ps.PrintDocument(output) as document:
        document.request_printing(copies=7, duplex=True, duplex_edge=ps.DuplexEdge.SHORT_EDGE)
        with document.page(10, 10):
            pass
    assert b"/NumCopies 7" in output.getvalue() and b"/Tumble true" in output.getvalue()


RECTANGLES = np.array([[0, 0, 10, 10], [20, 0.5, 10, 5], [40, 0, 1e-3, 7]])
COLORS = np.array([[1, 2, 3], [1, 2, 3], [200, 0, 255]], np.uint8)


@pytest.mark.parametrize("kind", [ps.PSDocument, ps.PrintDocument])
def test_whole_arrays_draw_what_single_calls_draw(kind):
    def singly(d):
        for shape, color in zip(RECTANGLES.tolist(), COLORS.tolist()):
            d.set_fill(ps.RGBColor(*color))
            d.draw_rectangle(*shape)
        for shape in RECTANGLES.tolist():
            d.draw_line(*shape)
        for shape in RECTANGLES[:2].tolist():
            d.draw_ellipse(*shape)
        for corners in ([(0, 0), (10, 0), (0, 10)], [(5, 5), (6, 7)]):
            path = ps.Path()
            for i, corner in enumerate(corners):
                (path.line_to if i else path.move_to)(*corner)
            path.close()
            d.draw_path(path)

    def at_once(d):
        d.draw_rectangles(RECTANGLES, COLORS)
        d.draw_lines(RECTANGLES.astype(np.float32)[::1])
        d.draw_ellipses(RECTANGLES[:2].tolist())
        d.draw_polylines([[0, 0], [10, 0], [0, 10], [5, 5], [6, 7]], [3, 2], closed=True)

    assert body(drawn(at_once, kind)) == body(drawn(singly, kind))


def test_codes_of_vertices_become_the_steps_of_a_path():
    vertices = [[0, 0], [6, 0], [9, 0], [9, 3], [9, 6], [3, 9], [0, 6], [0, 0], [1, 1], [7, 7]]
    codes = [1, 2, 3, 3, 4, 4, 4, 79, 1, 0]
    path = ps.Path.from_arrays(vertices, codes, fill_rule=ps.FillRule.EVEN_ODD)
    assert path.commands == [
        ("move_to", 0, 0), ("line_to", 6, 0), ("curve_to", 8, 0, 9, 1, 9, 3),
        ("curve_to", 9, 6, 3, 9, 0, 6), ("close",), ("move_to", 1, 1)]
    assert path.fill_rule == ps.FillRule.EVEN_ODD and len(path) == 6


@pytest.mark.parametrize("call, message", [
    (lambda d: ps.Path.from_arrays([[0, 0], [1, 1]], [1]), "1 codes for 2 vertices"),
    (lambda d: ps.Path.from_arrays([[0, 0], [1, 1]], [1, 4]), "middle of a curve"),
    (lambda d: ps.Path.from_arrays([[0, 0]], [9]), "the code 9"),
    (lambda d: d.draw_rectangles([[1, 2, 3]]), "rectangles must be an array of shape (n, 4)"),
    (lambda d: d.draw_rectangles(RECTANGLES, COLORS[:2]), "2 colors for 3 shapes"),
    (lambda d: d.draw_polylines([[0, 0], [1, 1]], [1]), "make 1 vertices, but there are 2"),
    (lambda d: d.draw_polylines([[0, 0]], [2, -1]), "below 0"),
])
def test_arrays_that_do_not_fit_are_refused_before_anything_is_drawn(call, message):
    def draw(d):
        with pytest.raises(ValueError) as raised:
            call(d)
        assert message in str(raised.value)

    assert body(drawn(draw)) == body(drawn(lambda d: None))


def test_plain_numbers_come_in_any_way_python_knows():
    def first(d):
        d.draw_rectangle(1, 2, 3, 4, 0, 0)

    for same in (lambda d: d.draw_rectangle(1, 2, 3, 4),
                 lambda d: d.draw_rectangle(np.float32(1), 2.0, width=3, height=np.int64(4)),
                 lambda d: d.draw_rectangle(radius_y=0, height=4, width=3, y=2, x=True)):
        assert body(drawn(same)) == body(drawn(first))
    d = ps.PrintDocument()
    for wrong, message in [
            (lambda: d.draw_rectangle(1, 2, 3), "takes 4 to 6 numbers (3 given)"),
            (lambda: d.draw_rectangle(1, 2, 3, radius_x=1), "takes 4 to 6 numbers (3 given)"),
            (lambda: d.draw_line(1, 2, 3, 4, 5), "takes 4 numbers (5 given)"),
            (lambda: d.draw_line(1, 2, 3, x1=4), "multiple values for argument 'x1'"),
            (lambda: d.draw_line(1, 2, 3, z=4), "unexpected keyword argument 'z'"),
            (lambda: d.draw_line(1, 2, 3, "4"), "must be real number, not str"),
            (lambda: ps.PrintDocument.draw_line(ps.Path(), 1, 2, 3, 4), "doesn't apply to a")]:
        with pytest.raises(TypeError, match=message.replace("(", r"\(").replace(")", r"\)")):
            wrong()


def test_documents_may_be_derived_from():
    class Twice(ps.PrintDocument):
        def draw_rectangle(self, x, y, width, height):
            super().draw_rectangle(x, y, width, height)
            super().draw_rectangle(x + 50, y, width, height)

    page = body(drawn(lambda d: (d.set_fill(RED), d.draw_rectangle(1, 2, 3, 4)), Twice))
    assert b"1 2 3 4 re" in page and b"51 2 3 4 re" in page

    class Unmade(ps.PrintDocument):
        def __init__(self):
            pass

    with pytest.raises(TypeError):
        Unmade().draw_line(1, 2, 3, 4)


def test_matrices_are_six_numbers():
    moved = ps.Matrix(2, 0, 0, 3, 0, 0) @ (1, 0, 0, 1, 10, 20)
    assert tuple(moved) == moved.values == (2, 0, 0, 3, 10, 20)
    moved.multiply([1, 0, 0, 1, 1, 1], ps.MatrixOrder.PREPEND)
    moved.translate(0, 1)
    assert moved == ps.Matrix((2, 0, 0, 3, 12, 24))
