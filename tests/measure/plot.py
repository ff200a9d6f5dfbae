"""What was measured as a picture."""

from __future__ import annotations

from pathlib import Path
from statistics import median
from typing import Callable, Mapping, Sequence

import matplotlib
from starts import Start

matplotlib.use("svg")
# The same figures give the same file.
matplotlib.rcParams["svg.hashsalt"] = "UninstallUI"

from matplotlib import pyplot  # noqa: E402

_PANELS: list[tuple[str, Callable[[Start], float]]] = [
    ("first frame, ms", lambda start: 1000 * start.first_frame),
    ("processor time, ms", lambda start: 1000 * start.cpu),
    ("peak memory, MB", lambda start: start.peak),
]
_OWN, _FLOOR, _DOT = "#1F6FFF", "#B9C0CC", "#202124"


def draw(starts: Mapping[str, Sequence[Start]], titles: Sequence[str], file: Path) -> None:
    """A bar for the median of each contender, in this order from above, a dot for each start."""
    figure, panels = pyplot.subplots(1, len(_PANELS), sharey=True, layout="constrained",
                                     figsize=(10, 0.5 + 0.4 * len(titles)))
    for panel, (label, figure_of) in zip(panels, _PANELS):
        for place, title in enumerate(titles):
            values = [figure_of(start) for start in starts[title]]
            panel.barh(place, median(values), height=0.6, color=_FLOOR if place else _OWN)
            panel.plot(values, [place] * len(values), ".", color=_DOT, markersize=3, alpha=0.5)
        panel.set_xlabel(label)
        panel.spines[["top", "right"]].set_visible(False)
    panels[0].set_yticks(range(len(titles)), titles)
    panels[0].invert_yaxis()
    figure.savefig(file, metadata={"Date": None})
    pyplot.close(figure)
