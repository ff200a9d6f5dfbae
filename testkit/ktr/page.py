"""HTML pages with screenshots."""

import html
from pathlib import Path

_STYLE = """
body { font: 14px sans-serif; margin: 24px; background: #f4f4f6; color: #202124; }
section { margin-bottom: 40px; }
nav { position: sticky; top: 0; padding: 8px 0; background: #f4f4f6; }
figure { display: inline-block; margin: 8px 16px 8px 0; vertical-align: top; }
figcaption { margin-bottom: 4px; color: #5f6368; }
figure img { border: 1px solid #dadce0; background: repeating-conic-gradient(#fff 0 25%, #eee 0 50%)
      0 0 / 16px 16px; }
table { border-collapse: collapse; background: #fff; }
td, th { border: 1px solid #dadce0; padding: 6px 10px; text-align: left; vertical-align: top; }
.differs { background: #fce8e6; } .known { background: #fef7e0; }
td img, li img { width: 320px; display: block; }
pre { white-space: pre-wrap; margin: 4px 0; max-width: 50em; }
"""


def write(file: Path, title: str, body: str) -> None:
    file.write_text(f'<!DOCTYPE html>\n<meta charset="utf-8"><title>UninstallUI: {title}</title>\n'
                    f"<style>{_STYLE}</style>\n{body}\n", "utf-8")


def image(file: Path, page_folder: Path) -> str:
    """An image below a page's folder."""
    source = html.escape(file.relative_to(page_folder).as_posix())
    return f'<img src="{source}" alt="" loading="lazy">'
