"""Many sets: a store of checks, and the results of all in one file."""

from __future__ import annotations

import os
from typing import Callable, Iterable, Mapping, Optional, Tuple, Union

from . import _polarline
from ._arguments import Lines, Progress, a_whole, flag, lines_of, number, progress_of, refuse, settings_of, two
from ._files import StrPath, bytes_of
from ._making import StrPaths, paths_of
from ._polarline import BatchOutcome, BatchResult, MergeResult
from ._set import Set, files_of

Metadata = Mapping[str, object]
BatchSets = Union[StrPath, Iterable[StrPath], Mapping[str, Metadata]]


def _line(folder: StrPath, metadata: Metadata) -> bytes:
    """A set as a line of a list has it."""
    name = bytes_of(folder)
    fields = [name if not name.startswith(b"#") else b"./" + name]
    fields += [f"{key}={value}".encode("utf-8", "surrogateescape") for key, value in metadata.items()]
    if any(mark in field for field in fields for mark in (b"\t", b"\n")):
        raise refuse("sets", folder, "a list has no room for TABs and line ends in names and metadata")
    return b"\t".join(fields)


def _list_of(sets: BatchSets) -> Tuple[bytes, bytes]:
    """The text of a list, empty where it is a file, and its name."""
    if isinstance(sets, (str, os.PathLike)):
        return b"", bytes_of(sets)
    if isinstance(sets, Mapping):
        lines = [_line(folder, metadata) for folder, metadata in sets.items()]
    elif isinstance(sets, Iterable) and not isinstance(sets, bytes):
        lines = [_line(folder, {}) for folder in sets]
    else:
        raise refuse("sets", sets, "the path of a list, folders, or a mapping of folders to their metadata was wanted")
    return b"\n".join(lines) + b"\n", b"sets"


def batch(sets: BatchSets, store: StrPath, *, limits: Lines = (), refine: bool = False,
          settings: Union[Mapping[str, object], Lines] = (), pairs: Optional[Tuple[int, int]] = None,
          files: Optional[Set] = None, shard: str = "", existing: bool = False, again: bool = False, stop_after: int = 0,
          claim_timeout: float = 300.0, on_set: Optional[Callable[[BatchResult, int, int], object]] = None) -> BatchOutcome:
    """Judges many sets into a store, a folder that several workers may share. What is there is left as it is.

    Parameters
    ----------
    sets : path, sequence of paths, or mapping
        The path of a list (a folder a line, its metadata behind TABs), the folders themselves, or a mapping from each
        folder to its metadata, ``{'night/A0042': {'serial': 'A0042', 'station': 3}}``.
    store : path
        Folder of the results; made where it is not there.
    limits, refine, settings, pairs
        As for `check`.
    files : Set, optional
        What is to be taken in place of the sets' own files, without a folder and a list.
    shard : str
        ``'2/5'``: of every five sets the second.
    existing : bool
        The store must be there (`make_store`): it is not made, as what stands in its place may not be its disk.
    again : bool
        Judge also what is there.
    stop_after : int
        End after so many sets without a verdict; 0: never.
    claim_timeout : float
        Seconds for which a worker of another machine may be silent until its set is taken.
    on_set : callable, optional
        Called with a `BatchResult`, the sets done and all sets behind each set. What it raises ends the batch and
        comes back.

    Returns
    -------
    BatchOutcome
        A set that fails raises nothing: it is a result.

    Raises
    ------
    InputError
        For a list, limit or setting that can't be used.
    OutputError
        For a store that can't be made or, with `existing`, is not there.

    Examples
    --------
    >>> import tempfile
    >>> with tempfile.TemporaryDirectory() as folder:
    ...     seen = polarline.simulate('ring_320', f'{folder}/a', pairs=1)
    ...     done = polarline.batch([f'{folder}/a'], f'{folder}/store', limits='dy_means<=0.1')
    ...     polarline.merge(f'{folder}/store', f'{folder}/results.sqlite').sets
    1
    >>> print(done)
    1 set: 1 judged, 0 already there.
    """
    text, name = _list_of(sets)
    if on_set is not None and not callable(on_set):
        raise refuse("on_set", on_set, "a callable was wanted")
    with files_of(Set() if files is None else files) as named:
        return _polarline.batch(text, name, shard=shard, store=bytes_of(store), files=named,
                                limits=lines_of("limits", limits, "a text such as 'dy_means<=0.1'"),
                                settings=settings_of(settings), refine=flag("refine", refine),
                                pairs=two("pairs", pairs, "(first, last)"),
                                existing=flag("existing", existing), again=flag("again", again),
                                stop_after=a_whole("stop_after", stop_after, 0), claim_timeout=number("claim_timeout", claim_timeout),
                                on_set=on_set)


def make_store(folder: StrPath) -> None:
    """Makes a store, so that workers may be told that it is there. One that is there stays as it is.

    Parameters
    ----------
    folder : path
        Where nothing stands yet.

    Raises
    ------
    OutputError
        Where it can't be made, and for a folder that is none: it may be the place of a disk that is not mounted.

    Examples
    --------
    >>> import tempfile
    >>> with tempfile.TemporaryDirectory() as folder:
    ...     polarline.make_store(f'{folder}/store')
    ...     seen = polarline.simulate('ring_320', f'{folder}/a', pairs=1)
    ...     polarline.batch([f'{folder}/a'], f'{folder}/store', existing=True).judged
    1
    """
    _polarline.make_store(bytes_of(folder))


def merge(stores: StrPaths, results: StrPath, *, progress: Optional[Progress] = None) -> MergeResult:
    """Merges what workers judged into one results file, SQLite, which `sqlite3` and pandas read as it is.

    Parameters
    ----------
    stores : path or sequence of paths
        Store folders, as `batch` fills them.
    results : path
        The file: made where it is not there, otherwise brought up to date.
    progress : callable, optional
        Called with the documents of a store that were looked at, and how many need it. What it raises ends the merge
        and comes back; the file is whole then, with a part of the documents.

    Returns
    -------
    MergeResult

    Raises
    ------
    InputError
        For a store that is no folder or has no mark, as its disk is away, and a file that is something else or of a newer version.
    OutputError
        Where the file can't be written.
    """
    return _polarline.merge(paths_of("stores", stores), bytes_of(results), progress=progress_of(progress))
