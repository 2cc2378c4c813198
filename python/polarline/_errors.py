"""What the package raises."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Optional, Tuple

if TYPE_CHECKING:
    from ._polarline import Check


class Error(Exception):
    """Every failure that the library tells of."""


class InputError(Error, ValueError):
    """What a caller named can't be used: the text tells the file, line or key, what was found and what was wanted."""


class OutputError(Error, OSError):
    """A result could not be written. It may succeed when tried again."""


class RunError(Error):
    """A run that failed.

    Attributes
    ----------
    status : int or None
        Status of the library; None where it did not end the run itself.
    name : str
        A word that does not change, such as ``'no_figures'``.
    text : str
        What happened.
    advice : str
        What to do.
    retry : bool
        Whether it may succeed when tried again.
    check : Check or None
        What was measured before the failure.
    """

    def __init__(self, text: str, *, status: Optional[int] = None, name: str = "", advice: str = "",
                 retry: bool = False, check: Optional[Check] = None) -> None:
        super().__init__(f"{text}\n{advice}" if advice else text)
        self.status = status
        self.name = name
        self.text = text
        self.advice = advice
        self.retry = retry
        self.check = check

    def __reduce__(self) -> Tuple[Any, ...]:
        """From one process to another it goes without its check."""
        return _run_error, (self.text, self.status, self.name, self.advice, self.retry)


def _run_error(text: str, status: Optional[int], name: str, advice: str, retry: bool) -> RunError:
    return RunError(text, status=status, name=name, advice=advice, retry=retry)
