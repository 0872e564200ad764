#!/usr/bin/env python3
"""Makes the guide that F1 shows from its Markdown: one HTML page for each, and contents.html.

    make_html.py DOCS FOLDER PAGE...

Each PAGE is the name of a Markdown file in DOCS without its ending. Links between the pages, to
headings, pictures and set-up files are checked: a link that leads nowhere ends this with 1. What the
toolkit's text browser does not know (width of a picture by style) stands in attributes.
"""
import pathlib
import re
import struct
import sys

import markdown

WIDEST = 700  # pixels of a picture in the window
WIDEST_IN_TABLE = 330
HEAD = """<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>{title}</title>
<style>
body {{ font-family: "Liberation Sans", Arial, sans-serif; color: #000000; background: #ffffff; }}
h1, h2, h3 {{ color: #16365c; }}
th {{ background: #e4e9f0; text-align: left; }}
th, td {{ padding: 3px 8px; vertical-align: top; }}
code, pre {{ font-family: "Liberation Mono", monospace; }}
pre {{ background: #f2f2ee; }}
@media print {{ h2 {{ page-break-inside: avoid; }} }}
</style></head>
<body>
"""


def png_width(path):
    return struct.unpack(">I", path.read_bytes()[16:20])[0]


def with_sizes(html, docs):
    def size(widest):
        return lambda match: (f'{match.group(0)} '
                              f'width="{min(widest, png_width(docs / match.group(1)))}"')

    parts = re.split(r"(<table>.*?</table>)", html, flags=re.DOTALL)
    source = re.compile(r'src="([^"]+\.png)"')
    return "".join(source.sub(size(WIDEST_IN_TABLE if part.startswith("<table") else WIDEST), part)
                   for part in parts)


def contents_of(page, tokens, depth=0):
    lines = ["<ul>"]
    for token in tokens:
        name = page if depth == 0 else f"{page}#{token['id']}"
        lines.append(f'<li><a href="{name}">{token["name"]}</a>')
        if token["children"] and depth < 2:
            lines.append(contents_of(page, token["children"], depth + 1))
        lines.append("</li>")
    return "\n".join(lines + ["</ul>"])


def broken_links(pages, docs):
    """Links of the finished pages that lead nowhere."""
    anchors = {name: set(re.findall(r'id="([^"]+)"', html)) for name, html in pages.items()}
    for name, html in pages.items():
        for link in re.findall(r'(?:href|src)="([^"]+)"', html):
            if re.match(r"[a-z]+:", link):
                yield f"{name}: {link} needs a network"
                continue
            target, _, anchor = link.partition("#")
            target = target or name
            if target not in pages and not (docs / target).exists():
                yield f"{name}: no {target}"
            elif anchor and anchor not in anchors.get(target, ()):
                yield f"{name}: no heading {link}"


def main():
    docs, folder, names = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:]
    pages, contents = {}, ""
    for name in names:
        reader = markdown.Markdown(extensions=["tables", "toc", "sane_lists"])
        html = reader.convert((docs / f"{name}.md").read_text(encoding="utf-8"))
        html = re.sub(r'href="([\w-]+)\.md', r'href="\1.html', html)
        html = with_sizes(html, docs)
        html = re.sub(r"<thead>\s*<tr>\s*(<th></th>\s*)+</tr>\s*</thead>", "", html)
        html = html.replace("<table>", '<table border="1" cellspacing="0" cellpadding="4">')
        title = re.sub(r"<[^>]+>", "", reader.toc_tokens[0]["name"])
        pages[f"{name}.html"] = HEAD.format(title=title) + html + "\n</body></html>\n"
        contents += contents_of(f"{name}.html", reader.toc_tokens)
    pages["contents.html"] = HEAD.format(title="Contents") + contents + "</body></html>\n"
    broken = list(broken_links(pages, docs))
    for line in broken:
        print(line, file=sys.stderr)
    folder.mkdir(parents=True, exist_ok=True)
    for name, html in pages.items():
        (folder / name).write_text(html, encoding="utf-8")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
