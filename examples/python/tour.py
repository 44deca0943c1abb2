#!/usr/bin/python3
"""A tour of the package: three pages of drawing, and a figure. Usage: tour.py [FOLDER]

Writes tour.ps and figure.eps to the folder, the current one unless given.
"""

# %% Everything is drawn on a page of a document
import pathlib
import sys

import numpy as np

import psgraphics as ps

folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".")
INK, PAPER = ps.RGBColor(38, 50, 72), ps.RGBColor(246, 241, 229)
CORAL, TEAL, GOLD = ps.RGBColor(226, 104, 86), ps.RGBColor(46, 134, 140), ps.RGBColor(240, 186, 72)


def heading(document, text, note):
    document.set_stroke(None)
    document.set_fill(PAPER)
    document.draw_rectangle(0, 0, 420, 297)
    document.set_fill(INK)
    document.set_font(ps.Font("DejaVu Serif", 22, 700))
    document.draw_text(text, 30, 45)
    document.set_font(ps.Font("DejaVu Sans", 9))
    document.draw_text(note, 30, 62)


# %% Shapes, strokes, gradients, clips


def shapes(document):
    heading(document, "Shapes and paint", "fills, gradients, dashes, clips, fragments")
    document.set_fill(ps.LinearGradientBrush((30, 0), (150, 0), [(0, CORAL), (1, GOLD)]))
    document.draw_rectangle(30, 80, 120, 80, 16, 16)
    ball = ps.RadialGradientBrush((215, 120), 0, 42, [(0, PAPER), (0.3, GOLD), (1, CORAL)],
                                  first_centre=(200, 105))
    document.set_fill(ball)
    document.draw_ellipse(215, 120, 42, 42)

    document.set_fill(None)
    for i, cap in enumerate((ps.LineCap.BUTT, ps.LineCap.ROUND, ps.LineCap.SQUARE)):
        document.set_stroke(ps.Stroke(TEAL, 6, cap, dashes=[18, 12]))
        document.draw_line(280, 90 + 28 * i, 390, 90 + 28 * i)

    # A star that clips a field of stripes.
    angle = np.arange(10) * np.pi / 5 - np.pi / 2
    radius = np.where(np.arange(10) % 2, 24, 58)
    star = np.c_[90 + radius * np.cos(angle), 230 + radius * np.sin(angle)]
    document.set_stroke(None)
    document.set_clip([ps.Path.from_arrays(star, closed=True)])
    stripes = np.arange(24)
    document.draw_rectangles(np.c_[30 + 5 * stripes, 0 * stripes + 165, 0 * stripes + 5.2,
                                   0 * stripes + 125],
                             np.c_[226 - 7 * stripes, 104 + stripes, 86 + 3 * stripes])
    document.set_clip()

    # A leaf, recorded once and placed in a ring.
    leaf = document.create_document_fragment(10, 40)
    leaf.set_stroke(None)
    leaf.set_fill(ps.SolidColorBrush(TEAL, 0.8))
    outline = ps.Path()
    outline.move_to(0, -12)
    outline.curve_to(10, -24, 8, -44, 0, -56)
    outline.curve_to(-8, -44, -10, -24, 0, -12)
    leaf.draw_path(outline)
    for turn in np.linspace(0, 2 * np.pi, 12, endpoint=False):
        c, s = np.cos(turn), np.sin(turn)
        document.set_transform((c, s, -s, c, 270, 230))
        document.draw_document_fragment(leaf)
    document.set_transform()


# %% Text: in any script, as outlines, glyph by glyph


def text(document):
    heading(document, "Text stays text", "search for these words in the finished pages")
    document.set_fill(INK)
    for i, (family, words) in enumerate([("Helvetica", "The quick brown fox"),
                                         ("DejaVu Sans", "Съешь ещё этих мягких булок"),
                                         ("DejaVu Serif", "Ξεσκεπάζω την ψυχοφθόρα"),
                                         ("Droid Sans Fallback", "天地玄黃 宇宙洪荒")]):
        document.set_font(ps.Font(family, 18))
        document.draw_text(words, 30, 100 + 28 * i)
    document.set_font(ps.Font("Helvetica", 64, 700))
    document.clip_to_text("clipped", 30, 265)
    tile = document.create_pattern_context(6, 6)
    tile.set_stroke(ps.Stroke(CORAL, 1.5))
    tile.set_fill(None)
    tile.draw_line(0, 0, 6, 6)
    document.set_fill(ps.PatternBrush(tile))
    document.draw_rectangle(20, 200, 380, 90)
    document.set_clip()


# %% Pictures are arrays


def pictures(document):
    heading(document, "Pictures from arrays", "NumPy in, pixels out: colours, alpha, stencils")
    y, x = np.mgrid[-1:1:200j, -1:1:200j]
    waves = np.stack([0.5 + 0.5 * np.sin(8 * x), 0.5 + 0.5 * np.cos(6 * y), x * y % 1], axis=2)
    pixels = (waves * 255).round().astype("uint8")
    document.draw_image(ps.RasterImage(pixels), 30, 85, 110, 110)
    disc = np.clip((1 - np.hypot(x, y)) * 4, 0, 1)
    document.draw_image(ps.RasterImage(pixels, alpha=(disc * 255).astype("uint8")), 155, 85, 110,
                        110)
    document.set_fill(ps.LinearGradientBrush((280, 85), (390, 195), [(0, TEAL), (1, GOLD)]))
    rings = np.hypot(x, y) % 0.2 < 0.1
    document.draw_stencil(ps.RasterImage(rings), 280, 85, 110, 110)
    document.set_fill(INK)
    random = np.random.default_rng(7)
    dots = np.c_[random.uniform(30, 390, 3000), random.normal(245, 12, 3000),
                 np.full((3000, 2), 0.7)]
    document.draw_ellipses(dots)


with ps.PrintDocument(folder / "tour.ps") as document:
    document.set_property("title", "A tour")
    for draw in (shapes, text, pictures):
        with document.page(420, 297):
            draw(document)

# %% A figure of matplotlib, through the same document
import matplotlib  # noqa: E402

matplotlib.use("module://psgraphics.matplotlib")
from matplotlib import pyplot  # noqa: E402

figure, axes = pyplot.subplots(figsize=(5, 3), layout="constrained")
time = np.linspace(0, 10, 400)
for damping in (0.1, 0.3, 0.9):
    axes.plot(time, np.exp(-damping * time) * np.cos(3 * time), label=f"$\\gamma = {damping}$")
axes.fill_between(time, np.exp(-0.1 * time), -np.exp(-0.1 * time), alpha=0.15)
axes.set(title="A damped oscillation", xlabel="time", ylabel="elongation")
axes.legend()
figure.savefig(folder / "figure.eps")
