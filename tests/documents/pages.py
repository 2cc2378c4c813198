"""What scripts/check_documents must know of the documents: what they take as given, what their files and sketches are, and which of
their commands can't run in a test."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Saved:
    """A block that is a file: it is saved under the name, and the command must succeed with it."""

    name: str
    command: str


@dataclasses.dataclass(frozen=True)
class Held:
    """A block that another test holds, or a sketch beside what it tests."""

    test: str


@dataclasses.dataclass(frozen=True)
class Usage:
    """A block that tells how a command is called: every option of it must be one that there is."""


@dataclasses.dataclass(frozen=True)
class Page:
    before: str = ":"  # Commands that make what a reader of the page has already.
    blocks: tuple = ()  # Of the blocks that are no commands, programs or queries each, in their order.
    not_run: dict = dataclasses.field(default_factory=dict)  # How a command begins -> why it is not run; its form is judged.
    unanswered: tuple = ()  # How queries begin that may be without an answer.
    programs: Held | None = None  # Who runs the programs in Python, where they hang together.
    places: dict = dataclasses.field(default_factory=dict)  # Where something lies as the page has it -> where a test has it.


TRY = "scripts/packages --try runs it on a bare Debian"
FRESH = "scripts/fresh_machine runs it on a bare Debian"
LONG = "takes minutes"
RINGS = "polarline simulate ring_320 set --quiet"
# Two sets, a list and a store.
FLEET = """polarline simulate ring_320 night/A0042 --pairs 1 --quiet
polarline simulate ring_320 night/A0043 --pairs 1 --seed 9 --quiet
printf 'night/A0042\\tserial=A0042\\tstation=3\\tmodel=S2\\tshift=late\\nnight/A0043\\tserial=A0043\\tstation=1\\n' > sets.txt
"""
JUDGED = FLEET + "polarline batch sets.txt --store {} --limit 'dy_means<=0.1' --quiet\n"
# What the questions of docs/store.md ask for: sets of a week in January 2026, a cause, a set that was tried twice.
WEEK = """polarline simulate ring_320 night/A0044 --pairs 1 --quiet
echo '{"schema": "polarline-scene/1", "preset": "ring_320", "misalignment": {"rotation_x": 0.1}}' > off.json
polarline simulate off.json night/A0045 --quiet
printf 'night/A0042\\tserial=A0042\\tstation=3\\ttime=2026-01-27T10:00:00Z\\tshift=late\\n' > sets.txt
printf 'night/A0045\\tserial=A0042\\tstation=3\\ttime=2026-01-26T10:00:00Z\\n' >> sets.txt
polarline batch sets.txt --store store --limit 'dy_means<=0.1' --quiet || test $? -eq 1
"""
BIG_DOTS = """cat > pictured.json <<'END'
{"schema": "polarline-scene/1", "preset": "big_1280", "pairs": 3, "board": {"cols": 26, "rows": 16, "inner_width": 5, "inner_height": 3},
 "rig": {"width": 1280, "height": 800, "baseline": 90,
         "left": {"k3": 0, "k4": 0, "k5": 0, "k6": 0}, "right": {"k3": 0, "k4": 0, "k5": 0, "k6": 0}}, "poses": [{"tilt_x": 6, "tilt_y": -12, "roll": 3, "fill": 0.86}]}
END
polarline simulate pictured.json pictures --quiet
"""
CAMCHAIN = "python3 $PROJECT/tests/documents/make_camchain.py pictures/calib.json 1280x800"

PAGES = {
    "README.md": Page(
        BIG_DOTS + FLEET + f"""{CAMCHAIN} calibration.yml
polarline simulate misaligned_1280 demo/misaligned_1280 --quiet""",
        (Held("tests/package/CheckPolarline.cmake"), Held("tests/package/CheckPolarline.cmake"), Held("tests/package/CheckPolarline.cmake")),
        {"scripts/demo": FRESH, "cmake --preset": FRESH, "scripts/test": FRESH},
        places={"polarline check demo/ring_640 --limit 'dy_means<=0.05'":  # As scripts/demo goes on.
                "polarline check demo/ring_640 --limit 'dy_means<=0.05' --json ring_640.json; echo; "
                "$BUILD/examples/truth_beside demo/ring_640 ring_640.json"}),
    "docs/packages.md": Page(
        not_run={**{command: TRY for command in ("sudo apt", "dpkg")}, "scripts/packages": LONG},
        places={"/usr/share/doc/libpolarlineprecision-dev/examples/": "$PROJECT/examples/"}),
    "docs/init.md": Page(
        BIG_DOTS + f"{CAMCHAIN} camchain.yaml && mv pictures/*.png ."),
    "docs/boards.md": Page(f"{RINGS} && cp set/target.ini ."),
    "docs/detect.md": Page(f"{RINGS} && cp set/target.ini set/left_0.png ."),
    "docs/check.md": Page(blocks=(Usage(),)),
    "docs/report.md": Page(
        "polarline simulate ring_320 my_set --quiet && polarline simulate ring_320 later --seed 9 --quiet\n"
        "polarline check my_set --json result.json --quiet && cp result.json before.json && polarline check later --json after.json --quiet"),
    "docs/batch.md": Page(
        FLEET + "mkdir inbox",
        (Saved("list.txt", "polarline batch list.txt --store other --quiet"),
         Saved("layout.txt", "test -f results/polarline-store.json && ls results/*/*.json results/*/*.metadata.json"),
         Saved("line.json", "polarline batch list.txt --store new > lines && python3 $PROJECT/tests/documents/same_keys.py line.json lines")),
        {"polarline batch --watch": "goes on until it is ended; tests/store holds it"}),
    "docs/fleet.md": Page(
        FLEET + "printf '2/:\\n8/station-pc\\n8/lab@bench-2\\n' > hosts.txt",
        not_run={"HOSTS=": "tests/fleet/parallel_test.py runs it, on machines that are there",
                 "TASKS=": "tests/fleet/slurm_test.py runs it, with a Slurm of its own",
                 "snakemake": "tests/fleet/snakemake_test.py runs it, where Snakemake is"}),
    "docs/fleet_page.md": Page(JUDGED.format("line_1") + "cp -r line_1 line_2"),
    "docs/store.md": Page(FLEET + WEEK, unanswered=("SELECT name, status, status_text FROM sets WHERE retry = 1",)),
    "docs/python.md": Page(
        not_run={**{command: "scripts/packages --try runs it without a network" for command in ("python3 -m venv", "my_env/bin/pip")},
                 "cmake --preset": FRESH, "PYTHONPATH=": FRESH}, programs=Held("tests/python/Documents_test.py")),
    "docs/architecture.md": Page(blocks=(Held("exports/RunExports.cpp"),)),
    "docs/how_it_measures/causes.md": Page(
        blocks=(Held("tests/diagnose/causes"),), not_run={"scripts/guide_tables": LONG, "build/release/tools/causes/causes": LONG}),
    "docs/how_it_measures/refined_centres.md": Page(
        blocks=(Held("tests/refine"),), not_run={"scripts/guide_tables": LONG, "scripts/accuracy": LONG}),
    "docs/how_it_measures/uncertainty.md": Page(RINGS, places={" SET ": " set "}),
    "docs/speed.md": Page(blocks=(Held("scripts/bench"),), not_run={"scripts/bench": LONG}),
    "docs/formats/scene_file.md": Page(
        blocks=(Held("tests/scene"), Saved("example.json", "polarline simulate example.json example --quiet && polarline check example --quiet"))),
    "docs/formats/board_ground_truth.md": Page(
        RINGS, (Saved("three.txt", "head -3 set/board_gt.txt | awk '{print NF}' | sort -u | grep -x 3"), Held("tests/input"))),
    "docs/formats/calibration_json.md": Page(
        blocks=(Saved("calib.json", "polarline import calib.json --size 640x480 --model brown -o again.json --quiet"),)),
    "docs/formats/check_document.md": Page(blocks=[Held("tests/check/document/CheckDocument_test.cpp")] * 3),
    "docs/formats/detection.md": Page(
        RINGS, (Saved("shown.csv", "polarline detect set/left_0.png --target set/target.ini --csv dots.csv > out; "
                      "head -1 dots.csv | cmp - <(head -1 shown.csv)"),)),
    "docs/formats/image_list.md": Page(RINGS, (Saved("set/list.txt", "polarline check set --quiet"),)),
    "docs/formats/imported_calibrations.md": Page(
        blocks=(Saved("camchain.yaml", "polarline import camchain.yaml --scale 1000 -o calib.json"),)),
    "docs/formats/limits.md": Page(RINGS, (Saved("set/limits.txt", "polarline check set --json - | grep -c '\"text\"'"),)),
    "docs/formats/polar_configuration.md": Page(RINGS, (Saved("set/polar.txt", "polarline check set --quiet"),)),
    "docs/formats/polynomial_tables.md": Page(blocks=(Held("tests/camera"), Held("tests/input"))),
    "docs/formats/rectified.md": Page(
        "polarline simulate rectified_1280 set --pairs 1 --quiet", (Saved("set/rectified.txt", "polarline check set --quiet"),)),
    "docs/formats/result_files.md": Page(blocks=[Held("tests/polar/results")] * 2),
    "docs/formats/target_configuration.md": Page(
        blocks=(Saved("target.ini", "polarline board --target target.ini --rings big -o board.svg"),
                Saved("target.json", "polarline board --target target.json -o board.svg"))),
}
