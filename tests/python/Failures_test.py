"""Runs that fail, are stopped or get in each other's way."""

import os
import pickle
import re
import signal
import subprocess
import sys
import threading
import time

import numpy as np
import pytest

import polarline
from conftest import PROJECT, SLOW


def test_failed_run_tells_status_name_text_and_advice(ring):
    blank = [np.full((256, 320), 90, np.uint8)] * 2
    with pytest.raises(polarline.RunError) as caught:
        polarline.check(ring, blank, blank, settings={"discalsave": 0})
    error = caught.value
    assert error.status == 8 and error.name and error.text and error.advice and not error.retry
    assert error.text in str(error) and error.advice in str(error)
    assert [pair.state for pair in error.check.pairs] == ["given up", "given up"]
    assert error.check.pairs[0].reason.code == -6 and error.check.verdict == "error"
    assert error.check.to_dict()["status"]["code"] == 8
    sent = pickle.loads(pickle.dumps(error))  # As from another process.
    assert (sent.status, sent.name, sent.text, sent.advice, sent.check) == (8, error.name, error.text, error.advice, None)


@pytest.mark.parametrize("options, text", [({"limits": "dy_meens<=1"}, "did you mean dy_means"),
                                           ({"settings": {"nothing": 1}}, "nothing"), ({"pairs": (3, 9)}, "0-1")])
def test_what_can_not_be_used_is_named(ring, options, text):
    with pytest.raises(polarline.RunError, match=text) as caught:
        polarline.check(ring, **options)
    assert caught.value.status is None and caught.value.name == "input_unusable"
    assert caught.value.advice and caught.value.advice == polarline.explain("input_unusable")[0].advice


WITHOUT_NUMBER = ("input_unusable", "exception", "not_written", "nothing_measured", "no_diagnosis")


def test_names_that_have_no_number_are_told_and_explained():
    page = (PROJECT / "docs/python.md").read_text()
    for name in WITHOUT_NUMBER:
        assert polarline.explain(name)[0].advice and f"`{name}`" in page, name
    (example,) = re.findall(r"such as ``'(\w+)'``", polarline.RunError.__doc__)
    assert polarline.explain(example)


def test_what_has_no_row_differences_is_told():
    with pytest.raises(polarline.RunError) as caught:
        polarline.diagnose(polarline.simulate("frame_1280", pairs=1))
    assert caught.value.status is None and caught.value.name == "no_diagnosis" and caught.value.check.verdict == "pass"
    assert caught.value.advice == polarline.explain("no_diagnosis")[0].advice


def test_missing_set_is_named(tmp_path):
    with pytest.raises(polarline.RunError, match="no_such_set"):
        polarline.check(tmp_path / "no_such_set")
    with pytest.raises(TypeError, match="set: found int"):
        polarline.check(7)


def test_input_error_is_a_value_error(tmp_path):
    with pytest.raises(polarline.InputError, match="nothing.yml") as caught:
        polarline.import_calibration(tmp_path / "nothing.yml")
    assert isinstance(caught.value, ValueError) and isinstance(caught.value, polarline.Error)


def test_progress_is_told_each_pair(ring):
    told = []
    polarline.check(ring, progress=lambda done, all: told.append((done, all)))
    assert told == [(1, 2), (2, 2)]


class Own(Exception):
    pass


def raise_own(*_):
    raise Own("of the caller")


def test_exception_of_progress_comes_back_as_itself(ring, tmp_path):
    for run in (lambda: polarline.check(ring, progress=raise_own),
                lambda: polarline.simulate("ring_320", progress=raise_own),
                lambda: polarline.simulate("ring_320", tmp_path / "set", progress=raise_own)):
        with pytest.raises(Own, match="of the caller") as caught:
            run()
        assert caught.tb.tb_frame is not None
    assert list(tmp_path.iterdir()) == []
    polarline.check(ring)  # And the next has its turn.


def test_run_within_a_run_is_refused(ring):
    with pytest.raises(RuntimeError, match="can't begin another"):
        polarline.check(ring, progress=lambda *_: polarline.check(ring))


def test_thread_that_progress_begins_waits_for_the_end_of_the_run(ring):
    began, threads, alive = [], [], []

    def progress(done, all):
        if done == 1:
            threads.append(threading.Thread(target=lambda: (began.append(1), polarline.detect(ring.left[0], ring.target), began.append(2))))
            threads[0].start()
        else:
            threads[0].join(0.5)  # Without a time it would wait for good, as the page says.
            alive.append(threads[0].is_alive())

    polarline.check(ring, progress=progress)
    threads[0].join(60 * SLOW)
    assert alive == [True] and began == [1, 2]
    assert "must not wait for a thread that calls `polarline`" in (PROJECT / "docs/python.md").read_text()


def test_gil_is_free_meanwhile(ring):
    counted, done = [0], threading.Event()

    def count():
        while not done.is_set():
            counted[0] += 1
            time.sleep(0.0005)

    counter = threading.Thread(target=count)
    counter.start()
    start = time.perf_counter()
    polarline.check(ring)
    took, seen = time.perf_counter() - start, counted[0]
    done.set()
    counter.join()
    assert seen > took / 0.02  # Held throughout, the run would let it count a switch interval's worth a pair.


def test_threads_take_turns_and_keep_their_figures():
    sets = [polarline.simulate("ring_320", seed=seed) for seed in (1, 2)]
    wanted = [polarline.check(each).to_dict()["pairs"] for each in sets]
    assert wanted[0] != wanted[1]
    got, inside, most = {}, [0], [0]

    def work(k):
        for _ in range(2):
            first = [True]

            def progress(done, all):
                if first[0]:
                    inside[0] += 1
                    first[0] = False
                most[0] = max(most[0], inside[0])
                if done == all:
                    inside[0] -= 1

            got[k] = polarline.check(sets[k], progress=progress).to_dict()["pairs"]

    threads = [threading.Thread(target=work, args=(k,)) for k in (0, 1)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert [got[0], got[1]] == wanted
    assert most[0] == 1


RUN_FOR_LONG = """
import sys, polarline
seen = polarline.simulate('ring_320', pairs=1)
def told(done, all):
    print('pair', flush=True)
try:
    polarline.check(seen, seen.left * 400, seen.right * 400, progress=told)
except KeyboardInterrupt:
    print('interrupted', flush=True)
    polarline.check(seen)
    print('and goes on', flush=True)
"""


def test_ctrl_c_ends_a_run():
    child = subprocess.Popen([sys.executable, "-c", RUN_FOR_LONG], stdout=subprocess.PIPE, text=True)
    assert child.stdout.readline() == "pair\n"
    child.send_signal(signal.SIGINT)
    rest, _ = child.communicate(timeout=100)
    assert child.returncode == 0
    assert rest.endswith("interrupted\nand goes on\n") and rest.count("pair") < 300


def test_ctrl_c_ends_the_waiting_for_a_turn(ring):
    waiting = threading.Thread(target=lambda: (started.wait(), time.sleep(0.3), os.kill(os.getpid(), signal.SIGINT)))
    started = threading.Event()
    holder = threading.Thread(target=lambda: polarline.check(ring, progress=lambda *_: (started.set(), time.sleep(1.0))))
    holder.start()
    waiting.start()
    started.wait()
    with pytest.raises(KeyboardInterrupt):
        polarline.check(ring)
        time.sleep(5)
    holder.join()
    waiting.join()


RUN_ONE = "import polarline; print(polarline.check(polarline.simulate('ring_320', seed={})).pairs[0].figures.dy_means)"


def test_processes_run_side_by_side():
    children = [subprocess.Popen([sys.executable, "-c", RUN_ONE.format(seed)], stdout=subprocess.PIPE, text=True) for seed in (1, 2)]
    told = [float(child.communicate(timeout=100)[0]) for child in children]
    assert told == [polarline.check(polarline.simulate("ring_320", seed=seed)).pairs[0].figures.dy_means for seed in (1, 2)]


def test_child_of_a_fork_has_its_turn(ring):
    def fork(done, all):
        if done > 1:
            return
        child = os.fork()
        if child == 0:
            os._exit(0 if len(polarline.Target("dots:9x7:10").points) == 63 and polarline.scene_file("ring_320") else 1)
        assert os.waitpid(child, 0)[1] == 0

    polarline.check(ring, progress=fork)
