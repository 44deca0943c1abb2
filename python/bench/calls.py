#!/usr/bin/python3
"""What a drawing call costs from Python and in C++ (the call for a whole array loops there), in
nanoseconds of processor time, the best of several runs."""

import time

import numpy as np

import psgraphics as ps

COUNT, RUNS = 100_000, 7


def best(work):
    times = []
    for _ in range(RUNS):
        start = time.process_time_ns()
        work()
        times.append(time.process_time_ns() - start)
    return min(times) / COUNT


def opened(kind, is_line):
    document = kind(ps.MemoryStream())
    document.start_document()
    document.start_page(600, 800)
    document.set_transform()
    document.set_stroke(ps.Stroke() if is_line else None)
    document.set_fill(ps.RGBColor(1, 2, 3))
    return document


def main():
    numbers = np.random.default_rng(0).random((COUNT, 4)).astype(np.float32) * 500
    rows = numbers.tolist()

    def loop():
        for _, _, _, _ in rows:
            pass

    print("| Document | Call | C++ | Python | Ratio |\n|---|---|---|---|---|")
    for kind in (ps.PSDocument, ps.PrintDocument):
        for shape in ("rectangle", "ellipse", "line"):
            def singly():
                draw = getattr(opened(kind, shape == "line"), f"draw_{shape}")
                for a, b, c, d in rows:
                    draw(a, b, c, d)

            def at_once():
                getattr(opened(kind, shape == "line"), f"draw_{shape}s")(numbers)

            python, cpp = best(singly) - best(loop), best(at_once)
            print(f"| {kind.__name__} | {shape} | {cpp:.0f} | {python:.0f} | {python / cpp:.2f} |")


if __name__ == "__main__":
    main()
