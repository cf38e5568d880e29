#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""The manual as HTML pages and as one PDF.

manual_pages.py FOLDER : writes FOLDER/html/*.html with their pictures, and FOLDER/manual.pdf. Needs
the Debian packages python3-markdown and weasyprint. The same text gives the same bytes.
"""

import html
import pathlib
import re
import shutil
import sys

import markdown
import weasyprint

ROOT = pathlib.Path(__file__).resolve().parents[1]
MANUAL = ROOT / "docs" / "manual"
INDEX = "indice"
PICTURES = "manual:"

STYLE = """
body { font-family: "DejaVu Sans", sans-serif; line-height: 1.45; }
h1, h2, h3 { line-height: 1.2; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #999; padding: 0.25em 0.6em; text-align: left; vertical-align: top; }
th { background: #eef0f2; }
pre, code { font-family: "DejaVu Sans Mono", monospace; }
pre { background: #f4f5f6; padding: 0.7em 1em; overflow-x: auto; line-height: 1.3; }
img { max-width: 100%; }
"""

SCREEN_STYLE = """
body { max-width: 60em; margin: 0 auto; padding: 1em 1.5em 3em; color: #232629; background: #fff; }
nav { border-bottom: 1px solid #ccc; padding-bottom: 0.5em; }
@media (prefers-color-scheme: dark) {
  body { color: #eff0f1; background: #232629; }
  a { color: #6cb8ff; }
  th { background: #31363b; }
  pre { background: #2b2f33; }
}
"""

PAPER_STYLE = """
@page { size: A4; margin: 2.2cm 2cm;
        @bottom-center { content: counter(page); font: 9pt "DejaVu Sans"; } }
@page :first { @bottom-center { content: none; } }
body { font-size: 9.5pt; }
section { break-before: page; }
section:first-of-type { break-before: auto; }
h1, h2, h3 { break-after: avoid; }
tr, img, pre { break-inside: avoid; }
pre { font-size: 7.6pt; white-space: pre; }
table { font-size: 8.8pt; }
a { color: inherit; text-decoration: none; }
"""


def slug(heading, separator="-"):
    """As the program names headings: in lower case, hyphens for blanks, no punctuation."""
    return re.sub(r"\s+", separator, re.sub(r"[^\w\s-]", "", heading.strip().lower()))


def chapters():
    index = (MANUAL / f"{INDEX}.md").read_text("utf-8")
    listed = re.findall(r"\]\(([\w-]+)\.md\)", index)
    return [INDEX, *dict.fromkeys(listed)]


def converted(chapter):
    text = (MANUAL / f"{chapter}.md").read_text("utf-8")
    toc = {"slugify": slug}
    body = markdown.markdown(
        text, extensions=["tables", "fenced_code", "toc", "sane_lists"], extension_configs={"toc": toc}
    )
    return re.match(r"# (.+)", text).group(1), body


def page(title, body, style, heading=""):
    return (
        f'<!DOCTYPE html>\n<html lang="es">\n<head>\n<meta charset="utf-8">\n'
        f'<meta name="viewport" content="width=device-width, initial-scale=1">\n'
        f"<title>{html.escape(title)}</title>\n<style>{STYLE}{style}</style>\n</head>\n"
        f"<body>\n{heading}{body}\n</body>\n</html>\n"
    )


def neighbours(order, place):
    links = [f'<a href="{INDEX}.html">Índice</a>']
    for text, other in (("Anterior", place - 1), ("Siguiente", place + 1)):
        if 0 <= other < len(order):
            links.append(f'<a href="{order[other]}.html">{text}</a>')
    return f"<nav>{' · '.join(links)}</nav>\n"


def write_html(folder):
    folder.mkdir(parents=True)
    order = chapters()
    for place, chapter in enumerate(order):
        title, body = converted(chapter)
        body = re.sub(r'href="([\w-]+)\.md(#[^"]*)?"', r'href="\1.html\2"', body)
        text = page(f"{title} - Cuadrado Latino", body, SCREEN_STYLE, neighbours(order, place))
        (folder / f"{chapter}.html").write_text(text, "utf-8")
    shutil.copytree(MANUAL / "imagenes", folder / "imagenes")


def picture(url):
    """A picture by a name that tells nothing of the folder: its name goes into the PDF."""
    name = url.removeprefix(PICTURES)
    return {"string": (MANUAL / "imagenes" / name).read_bytes(), "mime_type": "image/png"}


def write_pdf(path):
    sections = []
    for chapter in chapters():
        _, body = converted(chapter)
        body = re.sub(r' id="([^"]+)"', rf' id="{chapter}--\1"', body)
        body = re.sub(r'href="([\w-]+)\.md#([^"]*)"', r'href="#\1--\2"', body)
        body = re.sub(r'href="([\w-]+)\.md"', r'href="#\1"', body)
        body = body.replace('src="imagenes/', f'src="{PICTURES}')
        sections.append(f'<section id="{chapter}">\n{body}\n</section>')
    text = page("Manual de Cuadrado Latino", "\n".join(sections), PAPER_STYLE)
    document = weasyprint.HTML(string=text, base_url=PICTURES, url_fetcher=picture)
    document.write_pdf(path, optimize_size=("fonts",))


def main(folder):
    folder = pathlib.Path(folder)
    write_html(folder / "html")
    write_pdf(folder / "manual.pdf")


if __name__ == "__main__":
    main(*sys.argv[1:])
