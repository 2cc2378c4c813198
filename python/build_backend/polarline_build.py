"""Makes the wheel (PEP 517): CMake builds the module with the library in it, and what it installs is packed.

Needs nothing but CMake, Ninja, the compiler and the packages of scripts/setup --tests. `pip install --config-settings
build-dir=FOLDER` keeps the build in that folder, whose path is absolute: pip runs this in a folder of its choice.
"""
import base64
import hashlib
import pathlib
import re
import subprocess
import sys
import sysconfig
import tempfile
import zipfile

HERE = pathlib.Path(__file__).resolve().parent.parent
PROJECT = HERE.parent
EPOCH = (1980, 1, 1, 0, 0, 0)
READABLE = 0o100644 << 16  # Without it, what unpacks a wheel by the letter makes files that nobody may read.


class UnsupportedOperation(Exception):
    """What this backend does not do; the name is PEP 517's."""


def version():
    """Of the project, as CMake has it."""
    return re.search(r"project\(PolarLinePrecision VERSION ([\d.]+)", (PROJECT / "CMakeLists.txt").read_text()).group(1)


def tag():
    """What the module runs on: this interpreter, this system."""
    interpreter = f"cp{sys.version_info.major}{sys.version_info.minor}"
    platform = re.sub(r"[-.]", "_", sysconfig.get_platform())
    return f"{interpreter}-{interpreter}-{platform}"


def metadata():
    return (f"Metadata-Version: 2.1\nName: polarline\nVersion: {version()}\nSummary: Alignment figures of calibrated "
            "stereo infra-red camera pairs\nRequires-Python: >=3.9\nRequires-Dist: numpy\nLicense: Apache-2.0\n")


def wheel():
    return f"Wheel-Version: 1.0\nGenerator: polarline_build\nRoot-Is-Purelib: false\nTag: {tag()}\n"


def build(folder, stage):
    options = ["-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DPLP_UNITY=ON", "-DPLP_BUILD_TOOLS=OFF", "-DPLP_BUILD_TESTS=OFF",
               "-DPLP_BUILD_PYTHON=ON", "-DPLP_PYTHON_STANDALONE=ON", "-DPLP_PYTHON_DIR=.",
               f"-DPython_EXECUTABLE={sys.executable}"]
    for command in (["cmake", "-S", PROJECT, "-B", folder, *options],
                    ["cmake", "--build", folder, "--target", "polarline_python"],
                    ["cmake", "--install", folder, "--component", "python", "--strip", "--prefix", stage]):
        subprocess.run(command, check=True)


def add(archive, name, content):
    entry = zipfile.ZipInfo(name, EPOCH)
    entry.external_attr = READABLE
    archive.writestr(entry, content, zipfile.ZIP_DEFLATED)


def pack(stage, path):
    """The files of a folder as a wheel; the same bytes for the same files."""
    info = f"polarline-{version()}.dist-info"
    files = {str(file.relative_to(stage)): file.read_bytes() for file in stage.rglob("*") if file.is_file()}
    files[f"{info}/METADATA"] = metadata().encode()
    files[f"{info}/WHEEL"] = wheel().encode()
    files[f"{info}/LICENSE"] = (PROJECT / "LICENSE").read_bytes()
    record = []
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in sorted(files.items()):
            digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
            record.append(f"{name},sha256={digest},{len(content)}\n")
            add(archive, name, content)
        record.append(f"{info}/RECORD,,\n")
        add(archive, f"{info}/RECORD", "".join(record).encode())


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    name = f"polarline-{version()}-{tag()}.whl"
    with tempfile.TemporaryDirectory(prefix="polarline-wheel-") as scratch:
        kept = (config_settings or {}).get("build-dir")
        if kept and not pathlib.Path(kept).is_absolute():
            raise ValueError(f"build-dir: found {kept}; an absolute path was wanted")
        stage = pathlib.Path(scratch) / "stage"
        build(pathlib.Path(kept or pathlib.Path(scratch) / "build"), stage)
        pack(stage, pathlib.Path(wheel_directory) / name)
    return name


def build_sdist(sdist_directory, config_settings=None):
    raise UnsupportedOperation("the package is built in its repository, of which it needs all")
