"""The keys of the offers, from the default settings of the fake configuration library."""

import re

from ktr.installation import REPOSITORY

_TEMPLATE = REPOSITORY / "testkit/fakes/templates/vantoronlineconfig.dll.txt"

# Without the keys with a suffix for an OEM.
PRICE, CART, OTHERS_PRICE, LANDING = (
    key for key in re.findall(r"^string\.(\w+)=", _TEMPLATE.read_text("utf-8"), re.MULTILINE)
    if "__" not in key)
