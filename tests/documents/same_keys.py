"""Has the line of JSON that a page shows the keys of those that were printed?   same_keys.py SHOWN PRINTED"""

import json
import pathlib
import sys

shown, *printed = (json.loads(line) for name in sys.argv[1:] for line in pathlib.Path(name).read_text(encoding="utf-8").splitlines())
if not printed or any(list(line) != list(shown) for line in printed):
    sys.exit(f"shown: {list(shown)}, printed: {[list(line) for line in printed]}")
