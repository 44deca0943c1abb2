#!/usr/bin/python3
"""Figures as EPS by this back end and by matplotlib's own: milliseconds of processor time for
savefig, the best of several runs that take turns, and bytes. Usage: figures.py [FOLDER]; the files
are left there if it is named."""

import io
import logging
import pathlib
import sys
import time

import matplotlib
import numpy as np

matplotlib.use("Agg")
logging.disable(logging.WARNING)
from matplotlib import pyplot as plt  # noqa: E402

RUNS = 10
BACKENDS = {"ours": "module://psgraphics.matplotlib", "own": "ps"}
RANDOM = np.random.default_rng(1)
GRID = np.meshgrid(np.linspace(-3, 3, 60), np.linspace(-3, 3, 60))


def lines(axes):
    x = np.linspace(0, 10, 400)
    for i, style in enumerate(["-", "--", ":", "-.", "-"]):
        axes.plot(x, np.sin(x + i) * i, style, label=f"series {i}")
    axes.set(title=r"Waves $\alpha^2+\frac{a}{b}$", xlabel="time in seconds")
    axes.legend()
    axes.grid(True)


def scatter(axes):
    axes.scatter(*RANDOM.random((2, 2000)), c=RANDOM.random(2000), s=RANDOM.random(2000) * 80,
                 alpha=0.5)


def markers(axes):
    x = np.arange(60)
    for i, marker in enumerate("os^x+*D."):
        axes.plot(x, np.cos(x / 5) + i, marker, markeredgecolor="k" if i % 2 else None)


def hatches(axes):
    for i, hatch in enumerate(["/", "\\\\", "x", "o", "*"]):
        axes.bar(i, i + 1, hatch=hatch, facecolor=f"C{i}", edgecolor="k")


def pictures(axes):
    image = axes.imshow(np.hypot(*GRID))
    axes.inset_axes([0.6, 0.6, 0.35, 0.35]).imshow(RANDOM.random((40, 40, 3)))
    axes.figure.colorbar(image)


def mesh(axes):
    axes.pcolormesh(*GRID, np.sin(GRID[0]) * np.cos(GRID[1]))


def smooth_mesh(axes):
    axes.pcolormesh(*GRID, np.sin(GRID[0]) * np.cos(GRID[1]), shading="gouraud")


def contours(axes):
    z = np.exp(-GRID[0] ** 2 - GRID[1] ** 2) * GRID[0]
    axes.figure.colorbar(axes.contourf(*GRID, z, 12))
    axes.contour(*GRID, z, 12, colors="k", linewidths=0.5)


def clipped(axes):
    image = axes.imshow(np.arange(100).reshape(10, 10))
    image.set_clip_path(plt.Circle((5, 5), 4, transform=axes.transData))
    axes.annotate("arrow", (2, 2), (7, 8), arrowprops={"arrowstyle": "->"})


def dots(axes):
    axes.plot(*RANDOM.random((2, 20_000)), ".")


def polar(axes):
    angle = np.linspace(0, 2 * np.pi, 100)
    axes.fill(angle, 1 + np.cos(3 * angle))
    axes.plot(angle, 1 + np.sin(2 * angle))


def surface(axes):
    axes.plot_surface(*GRID, np.sin(np.hypot(*GRID)), cmap="coolwarm")


FIGURES = {lines: None, scatter: None, markers: None, hatches: None, pictures: None, mesh: None,
           smooth_mesh: None, contours: None, clipped: None, dots: None, polar: "polar",
           surface: "3d"}


def saved(figure, backend):
    output = io.BytesIO()
    start = time.process_time()
    figure.savefig(output, format="eps", backend=backend)
    return time.process_time() - start, output.getvalue()


def main():
    print("| Figure | time | own time | bytes | own bytes |\n|---|---|---|---|---|")
    for draw, projection in FIGURES.items():
        figure, axes = plt.subplots(subplot_kw={"projection": projection})
        draw(axes)
        times, sizes = {}, {}
        for _ in range(RUNS):
            for name, backend in BACKENDS.items():
                seconds, content = saved(figure, backend)
                times[name] = min(seconds, times.get(name, seconds))
                sizes[name] = len(content)
                if len(sys.argv) > 1:
                    target = pathlib.Path(sys.argv[1]) / f"{draw.__name__}-{name}.eps"
                    target.write_bytes(content)
        print(f"| {draw.__name__.replace('_', ' ')} | {times['ours'] * 1e3:.1f} | "
              f"{times['own'] * 1e3:.1f} | {sizes['ours']:,} | {sizes['own']:,} |", flush=True)
        plt.close(figure)


if __name__ == "__main__":
    main()
