#!/usr/bin/python3
"""Turns the guide into one HTML page with its style inside and a list of contents ahead.

    guia_html.py <guia.md> <guia.css> <guia.html>

Needs python3-markdown. The names of the headings are those that code hosts give them, so that a
link inside the guide works in both places.
"""

import html
import pathlib
import sys

import markdown
from markdown.extensions.toc import slugify_unicode

PAGE = """<!DOCTYPE html>
<html lang="es">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
{style}</style>
</head>
<body>
<nav aria-label="Contenido">
{contents}
</nav>
<main>
{text}
</main>
</body>
</html>
"""


def main() -> int:
    if len(sys.argv) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    source, style, target = map(pathlib.Path, sys.argv[1:])
    converter = markdown.Markdown(
        extensions=["tables", "sane_lists", "toc"],
        extension_configs={"toc": {"toc_depth": "2-3", "slugify": slugify_unicode}},
        output_format="html",
    )
    text = converter.convert(source.read_text(encoding="utf-8"))
    title = source.read_text(encoding="utf-8").splitlines()[0].lstrip("# ")
    page = PAGE.format(
        title=html.escape(title),
        style=style.read_text(encoding="utf-8"),
        contents=converter.toc,
        text=text,
    )
    target.write_text(page, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
