#!/usr/bin/env python3
"""Makes the manual's pages for a web browser from docs/manual/*.md.

render.py SOURCES TARGET    writes TARGET/*.html and what they show, in place of an older manual or of nothing. Of Markdown it knows
headings, paragraphs, lists without lists in them, tables, pictures on a line of their own, commands (indented by four blanks),
**strong**, `labels` and [links](to)."""

import html
import re
import shutil
import sys
from pathlib import Path

# In the order in which they are read.
PAGES = ["index", "sorting", "names", "undo", "looking", "folders", "deleting", "printing", "slideshow", "keys"]
# In each page that is made here: a folder of such pages may be made anew.
MARK = '<meta name="generator" content="Pixorra manual">'


def inline(text):
    text = html.escape(text, quote=False)
    text = re.sub(r"\*\*(.+?)\*\*", r"<strong>\1</strong>", text)
    text = re.sub(r"`(.+?)`", r"<code>\1</code>", text)
    return re.sub(r"\[(.+?)\]\((.+?)\)", lambda m: f'<a href="{html.escape(m[2].replace(".md", ".html"))}">{m[1]}</a>', text)


def table(rows):
    cells = [[inline(cell.strip()) for cell in row.strip().strip("|").split("|")] for row in rows]
    lines = ["<tr>" + "".join(f"<th>{cell}</th>" for cell in cells[0]) + "</tr>"]
    lines += ["<tr>" + "".join(f"<td>{cell}</td>" for cell in row) + "</tr>" for row in cells[2:]]
    return "<table>\n" + "\n".join(lines) + "\n</table>"


def items(block, mark, tag):
    texts = re.split(mark, "\n".join(block), flags=re.MULTILINE)[1:]
    return f"<{tag}>\n" + "\n".join(f"<li>{inline(' '.join(text.split()))}</li>" for text in texts) + f"\n</{tag}>"


def picture(match):
    return f'<p class="picture"><img src="{html.escape(match[2])}" alt="{html.escape(match[1])}"></p>'


def block_html(block):
    first = block[0]
    heading = re.match(r"(#+) (.+)", first)
    if heading:
        level = len(heading[1])
        return f"<h{level}>{inline(heading[2])}</h{level}>"
    shown = re.fullmatch(r"!\[(.*)\]\((.+)\)", first)
    if shown:
        return picture(shown)
    if first.startswith("|"):
        return table(block)
    if first.startswith("    "):
        return "<pre>" + html.escape("\n".join(line[4:] for line in block), quote=False) + "</pre>"
    if first.startswith("- "):
        return items(block, r"^- ", "ul")
    if re.match(r"\d+\. ", first):
        return items(block, r"^\d+\. ", "ol")
    return "<p>" + inline(" ".join(block)) + "</p>"


def body(text):
    return "\n".join(block_html(block.split("\n")) for block in re.split(r"\n{2,}", text.strip("\n")))


def title(text):
    return re.match(r"# (.+)", text)[1]


def page(name, texts):
    entries = "\n".join(f'<li><a href="{other}.html"{" aria-current=" + chr(34) + "page" + chr(34) if other == name else ""}>'
                        f"{inline(title(texts[other]))}</a></li>" for other in texts)
    names = list(texts)
    after = names[names.index(name) + 1:][:1]
    onward = "".join(f'<p class="onward"><a href="{next_page}.html">{inline(title(texts[next_page]))}</a></p>\n' for next_page in after)
    return (f'<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n<title>{inline(title(texts[name]))} - Pixorra</title>\n'
            f'{MARK}\n<meta name="viewport" content="width=device-width">\n<link rel="stylesheet" href="manual.css">\n</head>\n<body>\n'
            f'<nav aria-label="Pages">\n<p>Pixorra</p>\n<ul>\n{entries}\n</ul>\n</nav>\n<main>\n{body(texts[name])}\n{onward}</main>\n'
            "</body>\n</html>\n")


def is_made_here(path, target):
    """Whether that is a part of a manual in the folder `target`, an older one as well."""
    if path.parent == target / "images":
        return path.is_file() and path.suffix == ".png"
    if path.suffix == ".html":
        return path.parent == target and path.is_file() and MARK.encode() in path.read_bytes()
    return path in (target / "images", target / "manual.css")


def refusal(sources, target):
    """Why the target may not be replaced; None where it may be."""
    inner, outer = target.resolve(), sources.resolve()
    if inner == outer or inner in outer.parents or outer in inner.parents:
        return "is among the sources, or holds them"
    if target.is_symlink() or target.exists() and not target.is_dir():
        return "is no folder"
    held = list(target.rglob("*"))
    is_manual = target / "index.html" in held and all(is_made_here(path, target) for path in held)
    return "holds something else" if held and not is_manual else None


def main():
    sources, target = Path(sys.argv[1]), Path(sys.argv[2])
    problem = refusal(sources, target)
    if problem:
        sys.exit(f"render.py: {target} {problem}")
    texts = {name: (sources / f"{name}.md").read_text(encoding="utf-8") for name in PAGES}
    shutil.rmtree(target, ignore_errors=True)
    (target / "images").mkdir(parents=True)
    for image in sorted((sources / "images").glob("*.png")):
        shutil.copyfile(image, target / "images" / image.name)
    shutil.copyfile(sources / "manual.css", target / "manual.css")
    for name in PAGES:
        (target / f"{name}.html").write_text(page(name, texts), encoding="utf-8")


if __name__ == "__main__":
    main()
