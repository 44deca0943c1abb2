"""Writes pillow-album.svg: pictures of a landscape that never was, some turned, cut and tinted."""
import base64
import io

import numpy as np
from PIL import Image

WIDTH, HEIGHT = 560, 360
random = np.random.default_rng(5)


def ridge(height, roughness):
    """A skyline: midpoint noise in ever finer steps."""
    line = np.zeros(WIDTH)
    step, strength = 256, 60 * roughness
    while step >= 2:
        knots = random.normal(0, strength, WIDTH // step + 2)
        line += np.interp(np.arange(WIDTH), np.arange(knots.size) * step, knots)
        step, strength = step // 2, strength * 0.52
    return height + line


def landscape():
    y, x = np.mgrid[0:HEIGHT, 0:WIDTH]
    share = (y / HEIGHT)[..., None]
    picture = (1 - share) * np.array([38, 60, 120]) + share * np.array([255, 190, 120])
    sun = np.exp(-((x - 400) ** 2 + (y - 150) ** 2) / 900)[..., None]
    picture = picture * (1 - sun) + sun * np.array([255, 244, 214])
    for depth, base in enumerate((190, 225, 265, 310)):
        shade = np.array([150, 110, 130]) * (1 - depth * 0.24) + np.array([0, 6, 18])
        inside = (y > ridge(base, 1 - depth * 0.15))[..., None]
        grain = random.normal(0, 5, (HEIGHT, WIDTH, 1))
        haze = np.clip((y - base + 60) / 200, 0, 1)[..., None] * 35
        picture = np.where(inside, shade + haze * (3 - depth) / 3 + grain, picture)
    return Image.fromarray(np.clip(picture, 0, 255).astype("uint8"))


def medal():
    """A disc with a soft edge: the pixels are translucent there."""
    y, x = np.mgrid[-48:48, -48:48]
    radius = np.hypot(x, y)
    light = np.clip(0.75 - (x + y) / 130 + 0.15 * np.cos(radius / 3), 0, 1)
    colour = light[..., None] * np.array([255, 205, 90])
    alpha = np.clip((46 - radius) / 6, 0, 1)[..., None] * 255
    return Image.fromarray(np.concatenate([colour, alpha], -1).astype("uint8"))


def address(picture, form, **options):
    data = io.BytesIO()
    picture.save(data, form, **options)
    return f"data:image/{form};base64,{base64.b64encode(data.getvalue()).decode()}"


def frame(x, y, width, height, turn, image):
    return (f'<g transform="translate({x} {y}) rotate({turn})">'
            f'<rect x="-8" y="-8" width="{width + 16}" height="{height + 30}" fill="#fdfbf4" '
            f'stroke="#b9b2a0"/>{image}</g>')


photo = landscape()
grey = photo.convert("L").resize((280, 180)).quantize(16).convert("L")
parts = [
    '<svg xmlns="http://www.w3.org/2000/svg" width="640" height="520">',
    f'<defs><image id="photo" width="340" height="218" href="{address(photo, "jpeg", quality=72)}"/>'
    '</defs>',
    '<rect width="640" height="520" fill="#e9e2d3"/>',
    frame(36, 46, 340, 218, -3, '<use href="#photo"/>'),
    frame(424, 40, 170, 170, 4, f'<image width="170" height="170" '
          f'preserveAspectRatio="xMidYMid slice" href="{address(grey, "png", optimize=True)}"/>'),
    frame(60, 330, 170, 109, 5, '<use href="#photo" transform="scale(.5)" opacity=".55"/>'),
    frame(470, 300, 109, 170, -4, '<use href="#photo" transform="rotate(90 54.5 54.5) scale(.5)"/>'),
    f'<image x="282" y="330" width="130" height="130" href="{address(medal(), "png")}"/>',
    "</svg>",
]
with open("pillow-album.svg", "w", encoding="utf-8") as file:
    file.write("\n".join(parts) + "\n")
