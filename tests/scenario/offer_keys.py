"""The keys of the offers: those that the fake of the configuration library knows by default."""

import re

from ktr.installation import REPOSITORY

_TEMPLATE = REPOSITORY / "testkit/fakes/templates/vantoronlineconfig.dll.txt"

# Those with a suffix for an OEM are left out.
PRICE, CART, OTHERS_PRICE, LANDING = (
    key for key in re.findall(r"^string\.(\w+)=", _TEMPLATE.read_text("utf-8"), re.MULTILINE)
    if "__" not in key)
