"""Many sets: a store, the results of all, their page."""

import contextlib
import json
import pathlib
import sqlite3

import pytest

import polarline
from conftest import command, timeless


@pytest.fixture(scope="module")
def sets(tmp_path_factory):
    """Two small sets."""
    folder = tmp_path_factory.mktemp("fleet")
    for seed in (1, 2):
        polarline.simulate("ring_320", folder / f"set{seed}", pairs=1, seed=seed)
    return [folder / "set1", folder / "set2"]


def test_document_is_the_commands(sets, tmp_path):
    told = []
    done = polarline.batch(sets, tmp_path / "mine", limits="dy_means<=0.1", on_set=lambda *each: told.append(each))
    (tmp_path / "list.txt").write_text("".join(f"{folder}\n" for folder in sets))
    code, lines = command("batch", tmp_path / "list.txt", "--store", tmp_path / "theirs", "--limit", "dy_means<=0.1")
    assert (done.sets, done.judged, done.there, done.failed, done.exit_code) == (2, 2, 0, 0, code) and code == 0
    assert str(done) == "2 sets: 2 judged, 0 already there." and [each[1:] for each in told] == [(1, 2), (2, 2)]
    for (result, _, _), line in zip(told, lines.splitlines()):
        theirs = json.loads(line)
        assert pathlib.Path(result.document).name == pathlib.Path(theirs["document"]).name
        assert timeless(pathlib.Path(result.document).read_text()) == timeless(pathlib.Path(theirs["document"]).read_text())
        mine = json.loads(result.to_json())
        assert {name: getattr(result, name) for name in mine if name != "schema"} == {k: v for k, v in mine.items() if k != "schema"}
        assert (result.state, result.verdict, result.text) == ("judged", "pass", "")


def test_what_is_there_is_left(sets, tmp_path):
    polarline.batch(sets[:1], tmp_path)
    told = []
    done = polarline.batch(sets, tmp_path, on_set=lambda result, *_: told.append((result.set, result.state)))
    assert told == [(str(sets[0]), "there"), (str(sets[1]), "judged")] and (done.judged, done.there) == (1, 1)
    assert polarline.batch(sets, tmp_path, again=True).judged == 2
    assert polarline.batch(sets, tmp_path / "half", shard="2/2").sets == 1


def test_store_that_has_to_be_there_is_not_made(sets, tmp_path):
    for folder in (tmp_path / "nothing", tmp_path):  # The second is a folder without a mark.
        with pytest.raises(polarline.OutputError, match="the store is away"):
            polarline.batch(sets[:1], folder, existing=True)
    with pytest.raises(polarline.OutputError, match="perhaps its disk is not mounted"):
        polarline.make_store(tmp_path)
    with pytest.raises(polarline.InputError, match="polarline-store.json"):
        polarline.merge(tmp_path, tmp_path / "results.sqlite")
    assert not list(tmp_path.iterdir())
    for _ in range(2):
        polarline.make_store(tmp_path / "store")
    done = polarline.batch(sets[:1], tmp_path / "store", existing=True)
    assert done.judged == 1 and json.loads(done.to_json())["schema"] == "polarline-batch-outcome/1"


def test_failed_set_is_a_result(sets, tmp_path):
    told = []
    done = polarline.batch(["no_such_set", sets[0]], tmp_path, on_set=lambda result, *_: told.append(result))
    assert (done.failed, done.exit_code) == (1, 2) and [each.exit_code for each in told] == [2, 0]
    assert told[0].verdict == "error" and "no_such_set" in told[0].text and not told[1].text
    assert polarline.batch(["no_such_set", sets[0]], tmp_path / "stopped", stop_after=1).sets == 1


def test_metadata_come_into_the_results(sets, tmp_path):
    metadata = {str(sets[0]): {"serial": "A0042", "station": 3}, str(sets[1]): {}}
    polarline.batch(metadata, tmp_path / "store")
    told = []
    merged = polarline.merge(tmp_path / "store", tmp_path / "results.sqlite", progress=lambda *each: told.append(each))
    assert (merged.documents, merged.added, merged.sets, merged.unreadable) == (2, 2, 2, ()) and told[-1] == (2, 2)
    with contextlib.closing(sqlite3.connect(tmp_path / "results.sqlite")) as results:
        assert sorted(results.execute("SELECT serial, station FROM sets"), key=str) == [("A0042", "3"), (None, None)]
    again = polarline.merge([tmp_path / "store"], tmp_path / "results.sqlite")
    assert (again.unchanged, again.added) == (2, 0) and json.loads(again.to_json())["unchanged"] == 2


def test_options_are_those_of_a_check(sets, tmp_path):
    stricter = tmp_path / "stricter.txt"
    stricter.write_text("dy_means<=0.0001\n")
    told = []
    done = polarline.batch(sets[:1], tmp_path / "store", files=polarline.Set(limits=stricter), settings={"dy_bias_switch": 1},
                           refine=True, pairs=(0, 0), on_set=lambda result, *_: told.append(result))
    document = json.loads(pathlib.Path(told[0].document).read_text())
    assert done.exit_code == 1 and told[0].verdict == "fail" and "refined" in document["pairs"][0]


def test_unreadable_documents_are_told(sets, tmp_path):
    polarline.batch(sets[:1], tmp_path / "store")
    (document,) = (path for path in (tmp_path / "store").rglob("*.json") if len(path.stem) == 64)
    document.write_text("{")
    merged = polarline.merge(tmp_path / "store", tmp_path / "results.sqlite")
    assert merged.sets == 0 and [each.path for each in merged.unreadable] == [str(document)] and merged.unreadable[0].reason


def test_exceptions_of_callers_come_back(sets, tmp_path):
    def stop(*_):
        raise LookupError("mine")

    with pytest.raises(LookupError, match="mine"):
        polarline.batch(sets, tmp_path / "store", on_set=stop)
    assert len([path for path in (tmp_path / "store").rglob("*.json") if len(path.stem) == 64]) == 1
    assert not list((tmp_path / "store").rglob("*.claim"))
    with pytest.raises(LookupError, match="mine"):
        polarline.merge(tmp_path / "store", tmp_path / "results.sqlite", progress=stop)
    assert polarline.merge(tmp_path / "store", tmp_path / "results.sqlite").sets == 1


def test_refusals_are_told(sets, tmp_path):
    for wrong, wanted in ((7, "sets: found 7"), (["a\tb"], "no room for TABs"), ([7], "expected str")):
        with pytest.raises(TypeError, match=wanted):
            polarline.batch(wrong, tmp_path / "store")
    with pytest.raises(polarline.InputError, match="sets: names no set"):
        polarline.batch([], tmp_path / "store")
    with pytest.raises(polarline.InputError, match="time"):
        polarline.batch({str(sets[0]): {"time": "yesterday"}}, tmp_path / "store")
    with pytest.raises(polarline.InputError, match="dy_meens"):
        polarline.batch(sets, tmp_path / "store", limits="dy_meens<=1")
    with pytest.raises(polarline.InputError, match="nowhere"):
        polarline.merge(tmp_path / "nowhere", tmp_path / "results.sqlite")
    with pytest.raises(polarline.OutputError):
        polarline.batch(sets, "/dev/null/store")


def test_page_of_a_fleet_is_the_commands(sets, tmp_path):
    polarline.batch({str(folder): {"station": "1"} for folder in sets}, tmp_path / "store", limits="dy_means<=0.1")
    polarline.merge(tmp_path / "store", tmp_path / "results.sqlite")
    polarline.report(tmp_path / "results.sqlite", tmp_path / "mine.html", title="A fleet")
    _, theirs = command("report", tmp_path / "results.sqlite", "--title", "A fleet", "-o", "-")
    assert "A fleet" in (tmp_path / "mine.html").read_text()
    assert abs(len(theirs) - (tmp_path / "mine.html").stat().st_size) < 100  # The time of making differs.
    with pytest.raises(polarline.InputError, match="page of their own"):
        polarline.report([tmp_path / "results.sqlite", tmp_path / "other.json"], tmp_path / "both.html")
    assert not (tmp_path / "both.html").exists()
