"""Files and their names."""

from __future__ import annotations

import os
import tempfile
from typing import Union

from ._errors import OutputError

StrPath = Union[str, "os.PathLike[str]"]


def bytes_of(path: StrPath) -> bytes:
    """A path as the system has it."""
    return os.fsencode(path)


def write_whole(path: StrPath, content: Union[str, bytes]) -> None:
    """Writes a file that appears whole or not at all: beside its place, then renamed."""
    target = os.path.abspath(os.fspath(path))
    data = content.encode() if isinstance(content, str) else content
    partial = None
    try:
        handle, partial = tempfile.mkstemp(prefix=".polarline-", dir=os.path.dirname(target))
        with os.fdopen(handle, "wb") as file:
            file.write(data)
        mask = os.umask(0)
        os.umask(mask)
        os.chmod(partial, 0o666 & ~mask)
        os.replace(partial, target)
    except BaseException as error:
        if partial is not None and os.path.exists(partial):
            os.unlink(partial)
        if isinstance(error, OSError):
            raise OutputError(f"{os.fspath(path)}: {error.strerror}") from error
        raise
