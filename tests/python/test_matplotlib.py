"""The matplotlib back end, beside matplotlib's own PostScript."""

import io

import matplotlib
import numpy as np
import pytest
from matplotlib import pyplot

from psgraphics.matplotlib import PsPages

BACKEND = "module://psgraphics.matplotlib"


@pytest.fixture(autouse=True)
def closed_figures():
    matplotlib.use("Agg")
    yield
    pyplot.close("all")


def lines():
    figure, axes = pyplot.subplots()
    x = np.linspace(0, 10, 300)
    for i, style in enumerate(["-", "--", ":", "-."]):
        axes.plot(x, i * np.sin(x + i), style, label=f"series {i}")
    axes.set(title="Waves and Größen $\\alpha^2$", xlabel="time", ylabel="upright label")
    axes.legend()
    axes.grid(True)
    return figure


def markers():
    figure, axes = pyplot.subplots()
    x = np.arange(20.0)
    x[3] = np.nan
    for i, marker in enumerate("os^x+*D."):
        axes.plot(x, np.cos(x / 5) + i, marker, markeredgecolor="k" if i % 2 else None)
    axes.set_xlabel("markers")
    return figure


def collections():
    figure, (left, right) = pyplot.subplots(1, 2, figsize=(8, 4))
    random = np.random.default_rng(1)
    left.scatter(*random.random((2, 200)), c=random.random(200), s=random.random(200) * 90)
    right.scatter(*random.random((2, 100)), marker="^", color="C3", s=60)
    right.set_title("collections")
    return figure


def pictures():
    figure, (left, right) = pyplot.subplots(1, 2, figsize=(8, 4))
    left.imshow(np.arange(100).reshape(10, 10), origin="lower")
    image = right.imshow(np.arange(100).reshape(10, 10), interpolation="bilinear")
    image.set_clip_path(pyplot.Circle((5, 4), 4, transform=right.transData))
    figure.colorbar(left.images[0], label="bar")
    right.set_title("pictures")
    return figure


def meshes():
    figure, (left, middle, right) = pyplot.subplots(1, 3, figsize=(9, 3))
    x, y = np.meshgrid(np.linspace(-3, 3, 30), np.linspace(-3, 3, 30))
    z = np.sin(x) * np.cos(y)
    left.pcolormesh(x, y, z)
    middle.pcolormesh(x + y / 3, y, z)
    right.pcolormesh(x, y, z, shading="gouraud")
    left.set_title("meshes")
    return figure


def polar():
    figure, axes = pyplot.subplots(subplot_kw={"projection": "polar"})
    angle = np.linspace(0, 2 * np.pi, 100)
    axes.fill(angle, 1 + np.cos(3 * angle))
    axes.set_title("polar")
    return figure


def save(figure, name, backend, **settings):
    output = io.BytesIO()
    figure.savefig(output, format=name, backend=backend, **settings)
    return output.getvalue()


@pytest.mark.parametrize("make, words", [
    (lines, ["Waves", "Größen", "series", "time", "upright", "label", "−3", "α"]),
    (markers, ["markers"]),
    (collections, ["collections"]),
    (pictures, ["pictures", "bar"]),
    (meshes, ["meshes"]),
    (polar, ["polar", "135°"]),
])
def test_figures_look_as_matplotlib_writes_them_itself(pages, make, words):
    figure = make()
    own = save(figure, "eps", "ps")
    ours = save(figure, "eps", BACKEND)
    difference = np.abs(pages(ours).pixels(crop=True).astype(int) -
                        pages(own).pixels(crop=True))
    assert difference.mean() < 2 and (difference.max(axis=2) > 96).mean() < 0.01
    found = " ".join(pages(ours).words())
    assert [word for word in words if word not in found] == []
    assert len(ours) < len(own)


def test_translucent_paint_and_hatches(pages):
    figure, axes = pyplot.subplots(figsize=(2, 2))
    figure.subplots_adjust(0, 0, 1, 1)
    axes.set(xlim=(0, 2), ylim=(0, 2))
    axes.axis("off")
    axes.add_patch(pyplot.Rectangle((0, 1), 1, 1, facecolor=(1, 0, 0, 0.5)))
    axes.add_patch(pyplot.Rectangle((1, 1), 1, 1, facecolor="red", alpha=0.25))
    axes.add_patch(pyplot.Rectangle((0, 0), 1, 1, facecolor="yellow", edgecolor="blue",
                                    hatch="///"))
    axes.add_patch(pyplot.Rectangle((1, 0), 1, 1, facecolor="red", alpha=0))
    page = pages(save(figure, "eps", BACKEND)).pixels(crop=True).astype(int)
    assert np.abs(page[20, 20] - (255, 127, 127)).max() < 3
    assert np.abs(page[20, 120] - (255, 191, 191)).max() < 3
    assert page[120, 120].tolist() == [255, 255, 255]
    hatched = page[80:140, 4:64]
    yellow = (np.abs(hatched - (255, 255, 0)).max(axis=2) < 40)
    assert 0.3 < yellow.mean() < 0.95
    # The stripes rise to the right.
    assert (yellow[:-6, 6:] == yellow[6:, :-6]).mean() > (yellow[6:, 6:] == yellow[:-6, :-6]).mean()


def test_pages_are_as_large_as_asked():
    figure = pyplot.figure(figsize=(4, 3))
    figure.text(0.5, 0.5, "x")
    assert b"%%BoundingBox: 0 0 288 216" in save(figure, "ps", BACKEND)
    assert b"%%BoundingBox: 0 0 595 842" in save(figure, "ps", BACKEND, papertype="a4")
    assert b"%%BoundingBox: 0 0 842 595" in save(figure, "ps", BACKEND, papertype="a4",
                                                 orientation="landscape")
    tight = save(figure, "eps", BACKEND, bbox_inches="tight", metadata={"Title": "One letter"})
    assert b"%%BoundingBox: 0 0 2" in tight and b"%%BoundingBox: 0 0 288" not in tight
    assert b"%%Title: One letter" in tight
    with pytest.raises(ValueError, match="papertype 'a44' is not known"):
        save(figure, "ps", BACKEND, papertype="a44")


def test_figures_of_several_pages_and_parts_as_pixels(pages, tmp_path):
    with PsPages(tmp_path / "all.ps", metadata={"Author": "Me"}) as document:
        for word in ("first", "second"):
            figure, axes = pyplot.subplots(figsize=(3, 2))
            axes.set_title(word)
            axes.plot([0, 1], [0, 1], rasterized=True)
            document.savefig(figure, dpi=100)
    written = pages(tmp_path / "all.ps")
    assert "%%Pages: 2" in written.text() and "%%For: Me" in written.text()
    assert [word for word in written.words() if word.isalpha()] == ["first", "second"]


def test_the_back_end_serves_pyplot_and_leaves_other_formats_alone(tmp_path):
    matplotlib.use(BACKEND)
    figure = pyplot.figure(figsize=(1, 1))
    figure.savefig(tmp_path / "plain")
    figure.savefig(tmp_path / "picture.png")
    assert b"PSGraphics" in (tmp_path / "plain.ps").read_bytes()
    assert (tmp_path / "picture.png").read_bytes().startswith(b"\x89PNG")
