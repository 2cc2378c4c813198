"""What the tests of the Python package share: sets that they simulate, and the command."""

import json
import os
import pathlib
import subprocess

import pytest

import polarline

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
SLOW = int(os.environ.get("POLARLINE_SLOWNESS", "1"))


@pytest.fixture(autouse=True)
def _names_of_doctests(doctest_namespace):
    doctest_namespace["polarline"] = polarline


@pytest.fixture(scope="session")
def ring_set(tmp_path_factory):
    """A set of two pairs of 320 x 256 pixels on disk."""
    folder = tmp_path_factory.mktemp("sets") / "ring"
    polarline.simulate("ring_320", folder)
    return folder


@pytest.fixture(scope="session")
def ring():
    """The same in memory."""
    return polarline.simulate("ring_320")


@pytest.fixture(scope="session")
def checked(ring_set):
    return polarline.check(ring_set, refine=True)


def command(*arguments):
    """The document that the command writes to standard output."""
    alone = {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}  # It has the sanitizers' runtime in it.
    done = subprocess.run([os.environ["POLARLINE_COMMAND"], *map(str, arguments)], capture_output=True, check=False, env=alone)
    return done.returncode, done.stdout


def timeless(text):
    """A document without what differs between two runs."""
    document = json.loads(text)
    del document["started"], document["seconds"]
    return document
