#!/usr/bin/env python3
"""Writes the two pages of type: the standard fonts, and fonts that are embedded."""

STANDARD = [
    "Helvetica", "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique", "Times-Roman",
    "Times-Bold", "Times-Italic", "Times-BoldItalic", "Courier", "Courier-Bold",
    "Courier-Oblique", "Courier-BoldOblique", "Symbol", "ZapfDingbats",
]
SAYS = {
    "Symbol": "ΑΒΓΔΕΖΗΘ αβγδεζηθ ∀∃∈∉∏∑√∞∫≈≠≤≥",
    "ZapfDingbats": "✁✂✃✄✆✇✈✉✌✍✎✏✑✒✓✔✕✖✗✘✙✚✛✜✝",
}
EMBEDDED = [
    ("DejaVu Sans", "TrueType"), ("DejaVu Serif", "TrueType"), ("DejaVu Sans Mono", "TrueType"),
    ("Liberation Sans", "TrueType"), ("Liberation Serif", "TrueType"),
    ("P052", "Type 1"), ("C059", "Type 1"), ("Z003", "Type 1"),
]


def text(x, y, size, family, content, more=""):
    return (f'<text x="{x}" y="{y}" font-size="{size}" font-family="{family}"{more}>'
            f"{content}</text>\n")


def write(name, title, body):
    with open(name, "w", encoding="utf-8") as file:
        file.write('<svg xmlns="http://www.w3.org/2000/svg" width="595pt" height="842pt" '
                   'viewBox="0 0 595 842">\n<rect width="595" height="842" fill="white"/>\n')
        file.write(text(40, 60, 24, "Times", title))
        file.write(body)
        file.write("</svg>\n")


def run_of(first, count):
    """Characters in a row, none of them a mark or a control."""
    return "".join(chr(code) for code in range(first, first + count))


body = ""
for i, name in enumerate(STANDARD):
    y = 95 + 24 * i
    body += text(40, y, 9, "Helvetica", name, ' fill="#777"')
    body += text(160, y, 15, name, SAYS.get(name, "AVATAR To Wave: 0123456789 &amp; Årstíð œuvre"))
rows = [
    ("accents", "Helvetica", "Čeština, Türkçe, Íslenska, Łódź, Škoda, ąęėįšųūž, façade, Größe"),
    ("Greek", "DejaVu Sans", "Ξεσκεπάζω την ψυχοφθόρα βδελυγμία"),
    ("Cyrillic", "DejaVu Serif", "Съешь ещё этих мягких французских булок"),
    ("Hebrew", "DejaVu Sans", "דג סקרן שט בים"),
    ("Arabic", "DejaVu Sans", "نص حكيم له سر قاطع وذو شأن عظيم"),
    ("both ways", "DejaVu Sans", "In Hebrew, שלום (“peace”), in Arabic سلام 123."),
]
for i, (label, family, content) in enumerate(rows):
    y = 450 + 26 * i
    body += text(40, y, 9, "Helvetica", label, ' fill="#777"')
    body += text(160, y, 15, family, content)
body += text(40, 625, 9, "Helvetica", "more than 256 glyphs of one font", ' fill="#777"')
for i, (first, count) in enumerate([(0x21, 94), (0xA1, 95), (0x100, 64), (0x140, 64)]):
    body += text(40, 645 + 18 * i, 8, "Times", run_of(first, count).replace("&", "&amp;")
                 .replace("<", "&lt;").replace("\u00ad", ""))
body += ('<path id="wave" d="M40 790C140 720 240 850 340 780S500 740 550 780" fill="none" '
         'stroke="#ccd"/>\n<text font-size="16" font-family="Times" font-style="italic">'
         '<textPath href="#wave" startOffset="4">along a curve, letter by letter, '
         'each one upright on it</textPath></text>\n')
write("type-standard.svg", "The standard fonts and other scripts", body)

body = text(40, 92, 10, "Helvetica", "Each font with its kerning, and below it with every letter "
            "put where it falls without any.", ' fill="#777"')
WORDS = "AV To We Type WAVE, LT. Yo"
for i, (family, kind) in enumerate(EMBEDDED):
    y = 130 + 84 * i
    body += text(40, y - 22 + 8, 9, "Helvetica", f"{family}, {kind}", ' fill="#777"')
    body += text(40, y + 14, 26, family, WORDS)
    body += text(40, y + 42, 26, family, WORDS, ' fill="#2a6" style="font-kerning:none"')
write("type-embedded.svg", "Embedded fonts, kerned and unkerned", body)
