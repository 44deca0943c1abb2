"""Contours of two hills, bars and an orbit; labels are outlines (svg.fonttype path)."""
import matplotlib

matplotlib.use("svg")
matplotlib.rcParams.update({"svg.fonttype": "path", "svg.hashsalt": "psgraphics"})
import matplotlib.pyplot as plt
import numpy as np

figure, (left, right) = plt.subplots(1, 2, figsize=(8, 3.6))
x, y = np.meshgrid(np.linspace(-3, 3, 60), np.linspace(-2, 2, 60))
hills = np.exp(-((x - 1) ** 2 + y**2)) + 0.8 * np.exp(-((x + 1.2) ** 2) / 0.8 - (y - 0.4) ** 2)
left.contourf(x, y, hills, levels=9, cmap="YlGn")
left.contour(x, y, hills, levels=9, colors="#2b4a2b", linewidths=0.6)
left.set_title("Two hills")

values = [3.1, 4.6, 2.2, 5.4, 4.1]
right.bar(range(5), values, color=["#7fb3d5", "#f5b041", "#82c09a", "#d98880", "#a59fd1"],
          edgecolor="#333333", linewidth=0.8)
right.errorbar(range(5), values, yerr=0.5, fmt="none", ecolor="#333333", capsize=4)
right.plot(range(5), [2, 3, 3.6, 4.2, 5.8], "o--", color="#7d3c98")
right.set_title("Yield by field, t/ha")
right.set_xticks(range(5), list("ABCDE"))
figure.tight_layout()
figure.savefig("matplotlib-terrain.svg", metadata={"Date": None})
